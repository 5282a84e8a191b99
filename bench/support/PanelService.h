#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/ChildProcess.h"

namespace bench {

/// A panel service with a demonstration fleet, on a free port of this machine, for as long as this object lives.
class PanelService {
 public:
  static constexpr std::string_view user = "bench";
  static constexpr std::string_view password = "mark";

  /// `options` are those of corvane-panel.
  explicit PanelService(const std::vector<std::string>& options = {});

  /// "https://", the address and the port.
  [[nodiscard]] const std::string& BaseURL() const { return baseURL_; }

 private:
  ChildProcess program_;
  std::string baseURL_;
};

/// Runs the service on the second processor and the measurement on the first; otherwise the scheduler's choice would
/// change the figures.
[[nodiscard]] PanelService ServiceElsewhere(const std::vector<std::string>& options = {});

/// The body of a request that gives the right credentials, and `members`: JSON without braces, or nothing.
[[nodiscard]] std::string RequestBody(std::string_view members = {});

/// The body of a request for the last `count` lines of a log.
[[nodiscard]] std::string LogRequestBody(int count);

}  // namespace bench
