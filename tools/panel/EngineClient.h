#pragma once

#include <chrono>
#include <string>

#include <boost/json/value.hpp>

namespace panel {

/// Asks a container engine over its Unix socket. Each request has a connection of its own, so several threads may ask
/// at once.
class EngineClient {
 public:
  explicit EngineClient(std::string socketPath) : socketPath_(std::move(socketPath)) {}

  struct Answer {
    int Status = 0;  ///< Less than 400.
    std::string Body;
  };
  /// Both throw Refusal if the engine cannot be reached, is silent for longer than `patience`, breaks off, or answers
  /// with a status of 400 or more; then with its own words.
  [[nodiscard]] Answer Get(const std::string& path, std::chrono::seconds patience) const;
  [[nodiscard]] Answer Post(const std::string& path, const std::string& body, std::chrono::seconds patience) const;
  /// The body of a Get() as JSON. Throws Refusal if it is none, too.
  [[nodiscard]] boost::json::value GetJson(const std::string& path, std::chrono::seconds patience) const;

 private:
  std::string socketPath_;
};

}  // namespace panel
