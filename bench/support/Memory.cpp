#include "support/Memory.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace bench {
namespace {

constexpr double bytesOfKilobyte = 1024;

double ReadKilobytes(const std::string& path, std::string_view name) {
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(name)) return std::stod(line.substr(name.size())) * bytesOfKilobyte;
  }
  throw std::runtime_error(path + " has no " + std::string(name));
}

}  // namespace

double ProportionalMemory(pid_t process) {
  return ReadKilobytes("/proc/" + std::to_string(process) + "/smaps_rollup", "Pss:");
}

double PeakMemory() { return ReadKilobytes("/proc/self/status", "VmHWM:"); }

}  // namespace bench
