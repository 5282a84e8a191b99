#pragma once

#include <chrono>
#include <string>

namespace panel {

using Time = std::chrono::system_clock::time_point;

/// A duration in its largest whole unit, from seconds to weeks, as in "1 second" or "3 minutes". A negative one counts
/// as 0.
[[nodiscard]] std::string ToWords(std::chrono::seconds length);

/// A point in time to the minute, as in "2024-05-01 12:30 UTC".
[[nodiscard]] std::string ToUtcMinute(Time time);

/// Appends a point in time in the form of RFC 3339 with nanoseconds, as in "2024-05-01T12:30:00.000000000Z". The year
/// must have four digits.
void AppendTimestamp(std::string& text, Time time);

}  // namespace panel
