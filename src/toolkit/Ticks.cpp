#include "toolkit/Ticks.h"

#include "toolkit/Platform.h"

namespace toolkit {

std::int64_t Ticks() {
  return std::chrono::duration_cast<std::chrono::duration<std::int64_t, std::ratio<1, ticksPerSecond>>>(
             Platform::Current().Uptime())
      .count();
}

}  // namespace toolkit
