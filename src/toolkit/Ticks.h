#pragma once

#include <cstdint>

namespace toolkit {

constexpr std::int64_t ticksPerSecond = 60;

/// The time since some moment in the past, in sixtieths of a second. It never goes backwards.
[[nodiscard]] std::int64_t Ticks();

}  // namespace toolkit
