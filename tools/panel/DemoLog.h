#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "panel/Times.h"

namespace panel {

/// A simulated log. Lines are not stored, but computed from their number, always with the same result. A line is a
/// timestamp, a space and a message; as JSON with its row number it has about 107 bytes on average.
class DemoLog {
 public:
  /// A log of `length` lines, the last of which is dated `end`. Different names give different lines.
  DemoLog(std::string_view name, std::uint64_t length, Time end);

  [[nodiscard]] std::uint64_t Length() const { return length_; }
  /// Replaces `line` by the line with this number, counted from 0, which must be less than Length().
  void WriteLine(std::uint64_t number, std::string& line) const;

 private:
  std::uint64_t seed_;
  std::uint64_t length_;
  Time end_;
};

}  // namespace panel
