#pragma once

#include <string_view>
#include <sys/types.h>

namespace bench {

/// The memory of a process in bytes, where a page that several processes share counts in parts (see proc(5), "Pss").
[[nodiscard]] double ProportionalMemory(pid_t process);

/// The most memory that this process has had at any time, in bytes (see proc(5), "VmHWM").
[[nodiscard]] double PeakMemory();

}  // namespace bench
