#pragma once

#include <cstdint>

namespace toolkit {

constexpr std::int64_t ticksPerSecond = 60;

/// The time since a fixed moment in the past, in sixtieths of a second. Monotonic.
[[nodiscard]] std::int64_t Ticks();

}  // namespace toolkit
