#pragma once

#include <string_view>
#include <sys/types.h>

namespace bench {

/// The proportional memory of a process in bytes: a page that n processes share counts as 1/n (see proc(5), "Pss").
[[nodiscard]] double ProportionalMemory(pid_t process);

/// The peak memory of this process, in bytes (see proc(5), "VmHWM").
[[nodiscard]] double PeakMemory();

}  // namespace bench
