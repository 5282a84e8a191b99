#pragma once

#include <chrono>
#include <string_view>

namespace Kaju {

/// The moment of a "date-time" (RFC 3339), such as "2027-01-31T12:00:00Z" or "2027-01-31T14:00:00.5+02:00". Fractions
/// of a second do not count. Throws a KajuException if the text is none.
[[nodiscard]] std::chrono::sys_seconds MomentOf(std::string_view timestamp);

}  // namespace Kaju
