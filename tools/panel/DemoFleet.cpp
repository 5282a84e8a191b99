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
  std::string_view name;
  int exitCode;  // Less than 0: it runs.
  seconds inStateSince;
  seconds backupAge;  // 0: never backed up.
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
    : logLines_(settings.logLines),
      hostname_(settings.hostname),
      startedAt_(system_clock::now()),
      chance_(std::random_device()()) {
  containers_.reserve(settings.containers);
  for (std::uint64_t i = 0; i < settings.containers; ++i) containers_.push_back(MakeContainer(i, startedAt_));
}

DemoFleet::Container DemoFleet::MakeContainer(std::uint64_t number, Time now) {
  const Model& model = models[number % models.size()];
  Container made;
  made.name = model.name;
  // Beyond the models come their namesakes, "web-2" and so on.
  if (number >= models.size()) made.name.append("-").append(std::to_string(number / models.size() + 1));
  made.state = model.exitCode == runs ? State::Running : State::Exited;
  made.exitCode = model.exitCode;
  made.since = now - model.inStateSince;
  if (model.backupAge > 0s) made.backup = now - model.backupAge;
  return made;
}

Information DemoFleet::Describe() {
  const std::lock_guard lock(mutex_);
  std::uniform_real_distribution<double> load(4.0, 38.0);
  std::uniform_real_distribution<double> memoryAvailable(9.0, 11.0);
  return {
      .systemName = "Demonstration",
      .systemDescription = "An invented server for trying out",
      .systemDataCenterLocation = "Nowhere in particular",
      .operatingSystemType = "Debian GNU/Linux 12 (bookworm)",
      .operatingSystemKernelVersion = "6.1.0-18-amd64",
      .systemDockerVersion = "24.0.7",
      .dunmereVersion = "Demonstration",
      .cpuArchitecture = "x86_64",
      .cpuCount = "8",
      .cpuLoad = OneDecimal(load(chance_)),
      .memoryTotal = "15.6 GB",
      .memoryAvailable = OneDecimal(memoryAvailable(chance_)) + " GB",
      .storageDiskSize = "200.0 GB",
      .storageUsed = "82.0 GB",
      .storageUsedPercentage = "41",
      .storageAvailable = "118.0 GB",
      .networkHostname = hostname_,
      // Both from the ranges that are set aside for examples.
      .networkIPv4 = "192.0.2.10",
      .networkIPv6 = "2001:db8::10",
  };
}

std::string DemoFleet::Reboot() {
  const std::lock_guard lock(mutex_);
  const Time now = system_clock::now();
  for (Container& container : containers_) {
    if (container.state == State::Running) container.since = now;
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
    const std::string length = ToWords(floor<seconds>(now - container.since));
    const bool isRunning = container.state == State::Running;
    rows.push_back({
        .name = container.name,
        .state = isRunning ? "running" : "exited",
        .status = isRunning ? "Up " + length : "Exited (" + std::to_string(container.exitCode) + ") " + length + " ago",
        .backup = container.backup ? ToUtcMinute(*container.backup) : "never",
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
      container.state = State::Running;
      container.since = system_clock::now();
      return name + " has been restarted.";
    case Action::Backup:
      container.backup = system_clock::now();
      return name + " has been backed up.";
  }
  throw std::logic_error("no such action");
}

std::string DemoFleet::Start(Container& container) {
  if (container.state == State::Running) return container.name + " is running already.";
  container.state = State::Running;
  container.since = system_clock::now();
  return container.name + " has been started.";
}

std::string DemoFleet::Stop(Container& container) {
  if (container.state == State::Exited) return container.name + " is stopped already.";
  container.state = State::Exited;
  container.exitCode = 0;
  container.since = system_clock::now();
  return container.name + " has been stopped.";
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
                                  [&](const Container& container) { return container.name == name; });
  if (found == containers_.end()) throw Refusal("There is no container named \"" + name + "\".");
  return *found;
}

}  // namespace panel
