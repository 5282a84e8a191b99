#pragma once

#include <chrono>
#include <string_view>

namespace Kaju {

/// Parses a "date-time" (RFC 3339), such as "2027-01-31T12:00:00Z" or "2027-01-31T14:00:00.5+02:00". Fractions of a
/// second are dropped. Throws a KajuException for any other text.
[[nodiscard]] std::chrono::sys_seconds MomentOf(std::string_view timestamp);

}  // namespace Kaju
