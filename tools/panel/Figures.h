#pragma once

#include <cstdint>
#include <string>

namespace panel {

/// A number with one digit after the point, as in "12.5".
[[nodiscard]] std::string OneDecimal(double number);

/// A size in units of 10^9 bytes, as in "15.6 GB".
[[nodiscard]] std::string ToGigabytes(std::uint64_t bytes);

}  // namespace panel
