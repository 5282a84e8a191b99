#include "panel/DemoFleet.h"

#include <algorithm>
#include <array>
#include <thread>

#include "panel/DemoLog.h"
#include "panel/Figures.h"

namespace panel {
namespace {

using namespace std::chrono;

struct Model {
  std::string_view Name;
  int ExitCode;  // Negative: it is running.
  seconds InStateSince;
  seconds BackupAge;  // 0: never backed up.
};
constexpr int runs = -1;

// clang-format off
constexpr std::array<Model, 12> models{{
  {"service_dunmere", runs, days(41),           hours(9)},
  {"web",             runs, days(3),            hours(9)},
  {"shop",            runs, hours(7),           hours(9)},
  {"database",        runs, weeks(2),           hours(9)},
  {"cache",           runs, weeks(2),           0s},
  {"mail",            runs, days(5),            days(6)},
  {"search",          runs, minutes(48),        0s},
  {"queue",           runs, weeks(2),           0s},
  {"metrics",         runs, days(1),            days(27)},
  {"wiki",            137,  minutes(12),        days(2)},
  {"git",             runs, days(20),           days(1)},
  {"migration",       0,    days(3),            0s},
}};
// clang-format on

}  // namespace

DemoFleet::DemoFleet(const Settings& settings)
    : logLines_(settings.LogLines),
      hostname_(settings.Hostname),
      startedAt_(system_clock::now()),
      chance_(std::random_device()()) {
  containers_.reserve(settings.Containers);
  for (std::uint64_t i = 0; i < settings.Containers; ++i) containers_.push_back(MakeContainer(i, startedAt_));
}

DemoFleet::Container DemoFleet::MakeContainer(std::uint64_t number, Time now) {
  const Model& model = models[number % models.size()];
  Container made;
  made.Name = model.Name;
  // Further containers repeat the models, as "web-2" and so on.
  if (number >= models.size()) made.Name.append("-").append(std::to_string(number / models.size() + 1));
  made.State = model.ExitCode == runs ? State::Running : State::Exited;
  made.ExitCode = model.ExitCode;
  made.Since = now - model.InStateSince;
  if (model.BackupAge > 0s) made.Backup = now - model.BackupAge;
  return made;
}

Information DemoFleet::Describe() {
  const std::lock_guard lock(mutex_);
  std::uniform_real_distribution<double> load(4.0, 38.0);
  std::uniform_real_distribution<double> memoryAvailable(9.0, 11.0);
  return {
      .SystemName = "Demonstration",
      .SystemDescription = "An invented server for trying out",
      .SystemDataCenterLocation = "Nowhere in particular",
      .OperatingSystemType = "Debian GNU/Linux 12 (bookworm)",
      .OperatingSystemKernelVersion = "6.1.0-18-amd64",
      .SystemDockerVersion = "24.0.7",
      .DunmereVersion = "Demonstration",
      .CPUArchitecture = "x86_64",
      .CPUCount = "8",
      .CPULoad = OneDecimal(load(chance_)),
      .MemoryTotal = "15.6 GB",
      .MemoryAvailable = OneDecimal(memoryAvailable(chance_)) + " GB",
      .StorageDiskSize = "200.0 GB",
      .StorageUsed = "82.0 GB",
      .StorageUsedPercentage = "41",
      .StorageAvailable = "118.0 GB",
      .NetworkHostname = hostname_,
      // Both from the ranges reserved for documentation.
      .NetworkIPv4 = "192.0.2.10",
      .NetworkIPv6 = "2001:db8::10",
  };
}

std::string DemoFleet::Reboot() {
  const std::lock_guard lock(mutex_);
  const Time now = system_clock::now();
  for (Container& container : containers_) {
    if (container.State == State::Running) container.Since = now;
  }
  return "The server has been rebooted.";
}

std::string DemoFleet::Reload() {
  std::this_thread::sleep_for(1s);
  return "The panel service has been reloaded.";
}

std::vector<ContainerRow> DemoFleet::List() {
  const std::lock_guard lock(mutex_);
  const Time now = system_clock::now();
  std::vector<ContainerRow> rows;
  rows.reserve(containers_.size());
  for (const Container& container : containers_) {
    const std::string length = ToWords(floor<seconds>(now - container.Since));
    const bool isRunning = container.State == State::Running;
    rows.push_back({
        .Name = container.Name,
        .State = isRunning ? "running" : "exited",
        .Status = isRunning ? "Up " + length : "Exited (" + std::to_string(container.ExitCode) + ") " + length + " ago",
        .Backup = container.Backup ? ToUtcMinute(*container.Backup) : "never",
    });
  }
  return rows;
}

std::string DemoFleet::Act(Action action, const std::string& name) {
  const std::lock_guard lock(mutex_);
  Container& container = Find(name);
  switch (action) {
    case Action::Start:
      return Start(container);
    case Action::Stop:
      return Stop(container);
    case Action::Restart:
      container.State = State::Running;
      container.Since = system_clock::now();
      return name + " has been restarted.";
    case Action::Backup:
      container.Backup = system_clock::now();
      return name + " has been backed up.";
  }
  throw std::logic_error("no such action");
}

std::string DemoFleet::Start(Container& container) {
  if (container.State == State::Running) return container.Name + " is running already.";
  container.State = State::Running;
  container.Since = system_clock::now();
  return container.Name + " has been started.";
}

std::string DemoFleet::Stop(Container& container) {
  if (container.State == State::Exited) return container.Name + " is stopped already.";
  container.State = State::Exited;
  container.ExitCode = 0;
  container.Since = system_clock::now();
  return container.Name + " has been stopped.";
}

void DemoFleet::ReadLog(const std::string& name, std::uint64_t count, const LineSink& sink) {
  {
    const std::lock_guard lock(mutex_);
    Find(name);
  }
  const DemoLog log(name, logLines_, startedAt_);
  const std::uint64_t first = count == 0 || count > log.Length() ? 0 : log.Length() - count;
  std::string line;
  for (std::uint64_t i = first; i < log.Length(); ++i) {
    log.WriteLine(i, line);
    sink(line);
  }
}

DemoFleet::Container& DemoFleet::Find(const std::string& name) {
  const auto found = std::find_if(containers_.begin(), containers_.end(),
                                  [&](const Container& container) { return container.Name == name; });
  if (found == containers_.end()) throw Refusal("There is no container named \"" + name + "\".");
  return *found;
}

}  // namespace panel
