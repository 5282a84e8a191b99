#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace panel {

/// A call that cannot be carried out. The message is a sentence for the user.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The system information of a server: texts for the user, with their units.
struct Information {
  std::string SystemName;
  std::string SystemDescription;
  std::string SystemDataCenterLocation;
  std::string OperatingSystemType;
  std::string OperatingSystemKernelVersion;
  std::string SystemDockerVersion;
  std::string DunmereVersion;
  std::string CPUArchitecture;
  std::string CPUCount;
  std::string CPULoad;  ///< Percent, without the sign.
  std::string MemoryTotal;
  std::string MemoryAvailable;
  std::string StorageDiskSize;
  std::string StorageUsed;
  std::string StorageUsedPercentage;  ///< Without the sign.
  std::string StorageAvailable;
  std::string NetworkHostname;  ///< Where clients send all further requests.
  std::string NetworkIPv4;
  std::string NetworkIPv6;
};

/// One row of the list of containers, as texts for the user.
struct ContainerRow {
  std::string Name;
  std::string State;
  std::string Status;
  std::string Backup;
};

enum class Action { Start, Stop, Restart, Backup };

/// Receives the lines of a log, oldest first, in UTF-8 and without line breaks. A line is only valid during the call.
using LineSink = std::function<void(std::string_view)>;

/// A server with its containers. Called from several threads at once. All functions may throw Refusal; nothing has
/// changed then. Actions return a sentence for the user.
class Fleet {
 public:
  Fleet() = default;
  Fleet(const Fleet&) = delete;
  Fleet& operator=(const Fleet&) = delete;
  virtual ~Fleet() = default;

  virtual Information Describe() = 0;
  virtual std::string Reboot() = 0;
  virtual std::string Reload() = 0;
  virtual std::vector<ContainerRow> List() = 0;
  virtual std::string Act(Action action, const std::string& container) = 0;
  /// The last `count` lines of the container's log; 0 means all.
  virtual void ReadLog(const std::string& container, std::uint64_t count, const LineSink& sink) = 0;
};

}  // namespace panel
