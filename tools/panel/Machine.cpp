#include "panel/Machine.h"

#include <arpa/inet.h>
#include <array>
#include <fstream>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netdb.h>
#include <sys/statvfs.h>
#include <sys/utsname.h>
#include <thread>

namespace panel {
namespace {

// The rest of the line that starts with `key` in a file; empty if there is none.
std::string LineOf(const std::string& file, const std::string& key) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.compare(0, key.size(), key) == 0) return line.substr(key.size());
  }
  return {};
}

std::string OperatingSystem() {
  std::string name = LineOf("/etc/os-release", "PRETTY_NAME=");
  if (name.size() >= 2 && name.front() == '"') name = name.substr(1, name.size() - 2);
  return name;
}

std::uint64_t Memory(const std::string& key) {
  const std::string kibibytes = LineOf("/proc/meminfo", key);
  return kibibytes.empty() ? 0 : std::stoull(kibibytes) * 1024;
}

// The numeric address if other machines can reach it, else empty.
std::string PublicAddress(const ifaddrs& entry, int family) {
  if (entry.ifa_addr == nullptr || entry.ifa_addr->sa_family != family) return {};
  if ((entry.ifa_flags & IFF_LOOPBACK) != 0 || (entry.ifa_flags & IFF_UP) == 0) return {};
  const socklen_t size = family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
  std::array<char, NI_MAXHOST> text{};
  if (getnameinfo(entry.ifa_addr, size, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0) return {};
  std::string address = text.data();
  // A link-local address ("%") is only valid on its own link.
  return address.find('%') == std::string::npos ? address : std::string();
}

std::string FirstPublicAddress(int family) {
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return {};
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> all(first, freeifaddrs);
  for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
    if (std::string address = PublicAddress(*entry, family); !address.empty()) return address;
  }
  return {};
}

}  // namespace

Machine LookAtMachine() {
  utsname names{};
  uname(&names);
  return {
      .Name = std::data(names.nodename),
      .OperatingSystem = OperatingSystem(),
      .KernelVersion = std::data(names.release),
      .Architecture = std::data(names.machine),
      .Processors = std::thread::hardware_concurrency(),
      .MemoryTotal = Memory("MemTotal:"),
      .MemoryAvailable = Memory("MemAvailable:"),
      .IPv4 = FirstPublicAddress(AF_INET),
      .IPv6 = FirstPublicAddress(AF_INET6),
  };
}

Storage LookAtStorage(const std::string& path) {
  struct statvfs facts {};
  if (statvfs(path.c_str(), &facts) != 0) return {};
  return {.Size = facts.f_blocks * facts.f_frsize,
          .Used = (facts.f_blocks - facts.f_bfree) * facts.f_frsize,
          .Available = facts.f_bavail * facts.f_frsize};
}

LoadMeter::LoadMeter() : last_(Now()) {}

double LoadMeter::Percent() {
  const std::lock_guard lock(mutex_);
  const Ticks now = Now();
  // Two calls within one clock tick measure the same.
  if (now.All > last_.All) {
    percent_ = 100.0 * static_cast<double>(now.Busy - last_.Busy) / static_cast<double>(now.All - last_.All);
    last_ = now;
  }
  return percent_;
}

LoadMeter::Ticks LoadMeter::Now() {
  constexpr int idle = 3;
  constexpr int waitingForStorage = 4;
  constexpr int columns = 8;  // The guests' columns that follow are included in the first two.
  std::ifstream file("/proc/stat");
  std::string word;
  file >> word;
  Ticks ticks;
  std::uint64_t number = 0;
  for (int column = 0; column < columns && file >> number; ++column) {
    ticks.All += number;
    if (column != idle && column != waitingForStorage) ticks.Busy += number;
  }
  return ticks;
}

}  // namespace panel
