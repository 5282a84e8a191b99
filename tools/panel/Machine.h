#pragma once

#include <cstdint>
#include <mutex>
#include <string>

namespace panel {

/// Facts about the machine that this program runs on. Unknown ones are empty or 0.
struct Machine {
  std::string Name;
  std::string OperatingSystem;
  std::string KernelVersion;
  std::string Architecture;
  unsigned Processors = 0;
  std::uint64_t MemoryTotal = 0;      ///< Bytes.
  std::uint64_t MemoryAvailable = 0;  ///< Bytes.
  std::string IPv4;                   ///< The first one that other machines can know.
  std::string IPv6;                   ///< Likewise.
};
[[nodiscard]] Machine LookAtMachine();

/// A file system, in bytes.
struct Storage {
  std::uint64_t Size = 0;
  std::uint64_t Used = 0;
  std::uint64_t Available = 0;
};
/// The file system of `path`; all 0 if the path does not exist.
[[nodiscard]] Storage LookAtStorage(const std::string& path);

/// Measures the load of the processors. Thread-safe.
class LoadMeter {
 public:
  LoadMeter();
  /// The load since the last call, or since the start, in percent.
  double Percent();

 private:
  struct Ticks {
    std::uint64_t Busy = 0;
    std::uint64_t All = 0;
  };
  static Ticks Now();

  std::mutex mutex_;
  Ticks last_;
  double percent_ = 0;
};

}  // namespace panel
