#pragma once

#include <cstdint>
#include <mutex>
#include <string>

namespace panel {

/// Facts about the machine that this program runs on. What cannot be found out is an empty text or 0.
struct Machine {
  std::string name;
  std::string operatingSystem;
  std::string kernelVersion;
  std::string architecture;
  unsigned processors = 0;
  std::uint64_t memoryTotal = 0;      ///< Bytes.
  std::uint64_t memoryAvailable = 0;  ///< Bytes.
  std::string ipv4;                   ///< The first one that other machines can know.
  std::string ipv6;                   ///< Likewise.
};
[[nodiscard]] Machine LookAtMachine();

/// A file system, in bytes.
struct Storage {
  std::uint64_t size = 0;
  std::uint64_t used = 0;
  std::uint64_t available = 0;
};
/// The file system that `path` lies on; all 0 if there is no such path.
[[nodiscard]] Storage LookAtStorage(const std::string& path);

/// Measures how busy the processors are. May be used by several threads.
class LoadMeter {
 public:
  LoadMeter();
  /// The load since the last call, or since the start, in percent.
  double Percent();

 private:
  struct Ticks {
    std::uint64_t busy = 0;
    std::uint64_t all = 0;
  };
  static Ticks Now();

  std::mutex mutex_;
  Ticks last_;
  double percent_ = 0;
};

}  // namespace panel
