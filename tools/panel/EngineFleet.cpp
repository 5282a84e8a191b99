#include "panel/EngineFleet.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "panel/EngineLog.h"
#include "panel/Figures.h"
#include "panel/Json.h"
#include "panel/Times.h"
#include "toolkit/HTTPStatus.h"

namespace panel {
namespace {

namespace json = boost::json;
using namespace std::chrono_literals;

constexpr std::string_view backupRepository = "corvane-backup";
constexpr std::size_t stampLength = 15;  // YYYYMMDD-HHMMSS

constexpr auto patienceForQuestions = 10s;
constexpr auto patienceForActions = 30s;  // Ten seconds to stop, then the engine kills the container.
constexpr auto patienceForLogs = 60s;
constexpr auto patienceForBackups = 600s;

struct EngineAction {
  panel::Action Action;
  std::string_view Path;
  std::string_view Done;
  /// What is told on status 304, which not every call has.
  std::string_view Needless = Done;
};
// clang-format off
constexpr auto actions = std::to_array<EngineAction>({
  {Action::Start,   "/start",        " has been started.",   " is running already."},
  {Action::Stop,    "/stop?t=10",    " has been stopped.",   " is stopped already."},
  {Action::Restart, "/restart?t=10", " has been restarted.", " has been restarted."},
});
// clang-format on

json::array ToArray(json::value value) {
  if (!value.is_array()) throw Refusal("The container engine's answer cannot be understood.");
  return std::move(value.get_array());
}

// The strings in an array; empty if there is no such array.
std::vector<std::string> TextsOf(const json::object& members, std::string_view key) {
  std::vector<std::string> texts;
  const json::value* value = members.if_contains(key);
  if (value == nullptr || !value->is_array()) return texts;
  for (const json::value& text : value->get_array()) {
    if (text.is_string()) texts.emplace_back(text.get_string().begin(), text.get_string().end());
  }
  return texts;
}

// Names begin with a slash; names with further slashes are aliases from other containers.
std::string NameOf(const json::object& container) {
  for (const std::string& name : TextsOf(container, "Names")) {
    if (name.rfind('/') == 0) return name.substr(1);
  }
  return TextOf(container, "Id").substr(0, 12);
}

std::string MakeStamp(Time time) {
  std::string text;
  AppendTimestamp(text, time);
  std::string stamp = text.substr(0, std::string_view("YYYY-MM-DDTHH:MM:SS").size());
  std::erase_if(stamp, [](char c) { return c == '-' || c == ':'; });
  std::replace(stamp.begin(), stamp.end(), 'T', '-');
  return stamp;
}

std::string StampToWords(const std::string& stamp) {
  return stamp.substr(0, 4) + "-" + stamp.substr(4, 2) + "-" + stamp.substr(6, 2) + " " + stamp.substr(9, 2) + ":" +
         stamp.substr(11, 2) + " UTC";
}

// The stamp of the newest backup of each container that has one, by the container's name.
std::map<std::string, std::string> FindBackups(const json::array& images) {
  std::map<std::string, std::string> newest;
  const std::string mark = std::string(backupRepository) + ":";
  for (const json::value& image : images) {
    if (!image.is_object()) continue;
    for (const std::string& tag : TextsOf(image.get_object(), "RepoTags")) {
      const std::size_t found = tag.find(mark);  // It may be preceded by a registry's name.
      if (found == std::string::npos || tag.size() < found + mark.size() + 1 + stampLength) continue;
      const std::string stamp = tag.substr(tag.size() - stampLength);
      const std::size_t start = found + mark.size();
      std::string& known = newest[tag.substr(start, tag.size() - stampLength - 1 - start)];
      known = std::max(known, stamp);
    }
  }
  return newest;
}

}  // namespace

EngineFleet::EngineFleet(std::string socketPath, std::string hostname)
    : engine_(std::move(socketPath)), hostname_(std::move(hostname)) {}

Information EngineFleet::Describe() {
  const json::value answer = engine_.GetJson("/info", patienceForQuestions);
  const json::object engine = answer.is_object() ? answer.get_object() : json::object();
  const Machine machine = LookAtMachine();
  const std::string root = TextOf(engine, "DockerRootDir");
  const Storage storage = LookAtStorage(root.empty() ? "/" : root);
  const std::uint64_t percentage = storage.Size == 0 ? 0 : storage.Used * 100 / storage.Size;
  return {
      .SystemName = machine.Name,
      .SystemDescription = "A machine with a container engine, for trying out",
      .SystemDataCenterLocation = "Unknown",
      .OperatingSystemType = machine.OperatingSystem,
      .OperatingSystemKernelVersion = machine.KernelVersion,
      .SystemDockerVersion = TextOf(engine, "ServerVersion"),
      .DunmereVersion = "For trying out",
      .CPUArchitecture = machine.Architecture,
      .CPUCount = std::to_string(machine.Processors),
      .CPULoad = OneDecimal(load_.Percent()),
      .MemoryTotal = ToGigabytes(machine.MemoryTotal),
      .MemoryAvailable = ToGigabytes(machine.MemoryAvailable),
      .StorageDiskSize = ToGigabytes(storage.Size),
      .StorageUsed = ToGigabytes(storage.Used),
      .StorageUsedPercentage = std::to_string(percentage),
      .StorageAvailable = ToGigabytes(storage.Available),
      .NetworkHostname = hostname_,
      .NetworkIPv4 = machine.IPv4,
      .NetworkIPv6 = machine.IPv6,
  };
}

std::string EngineFleet::Reboot() { return "Acknowledged only: this panel does not reboot the machine it runs on."; }

std::string EngineFleet::Reload() { return "Acknowledged only: this panel has nothing to reload."; }

std::vector<ContainerRow> EngineFleet::List() {
  std::map<std::string, std::string> backups =
      FindBackups(ToArray(engine_.GetJson("/images/json", patienceForQuestions)));
  std::vector<ContainerRow> rows;
  for (const json::value& container : ToArray(engine_.GetJson("/containers/json?all=true", patienceForQuestions))) {
    if (!container.is_object()) continue;
    const json::object& members = container.get_object();
    ContainerRow row{.Name = NameOf(members),
                     .State = TextOf(members, "State"),
                     .Status = TextOf(members, "Status"),
                     .Backup = "never"};
    if (const auto backup = backups.find(row.Name); backup != backups.end()) row.Backup = StampToWords(backup->second);
    rows.push_back(std::move(row));
  }
  // Engines may return them in another order each time.
  std::sort(rows.begin(), rows.end(), [](const auto& left, const auto& right) { return left.Name < right.Name; });
  return rows;
}

std::string EngineFleet::Act(Action action, const std::string& name) {
  const std::string id = FindId(name);
  if (action == Action::Backup) return BackUp(id, name);
  const auto* row =
      std::find_if(actions.begin(), actions.end(), [&](const auto& each) { return each.Action == action; });
  // No body: if an engine closes the connection without having read it, its answer is lost as well.
  const int status = engine_.Post("/containers/" + id + std::string(row->Path), "", patienceForActions).Status;
  return name + std::string(status == toolkit::HTTPStatus::notModified ? row->Needless : row->Done);
}

std::string EngineFleet::BackUp(const std::string& id, const std::string& name) {
  const std::string repository(backupRepository);
  const std::string tag = name + "-" + MakeStamp(std::chrono::system_clock::now());
  const std::string path = "/commit?container=" + id + "&repo=" + repository + "&tag=" + tag;
  // Requests no changes to the image's settings.
  static_cast<void>(engine_.Post(path, "{}", patienceForBackups));
  return name + " has been backed up as the image " + repository + ":" + tag + ".";
}

void EngineFleet::ReadLog(const std::string& name, std::uint64_t count, const LineSink& sink) {
  const std::string container = "/containers/" + FindId(name);
  const json::value facts = engine_.GetJson(container + "/json", patienceForQuestions);
  boost::system::error_code error;
  const json::value* hasTerminal = facts.find_pointer("/Config/Tty", error);
  const bool isRaw = hasTerminal != nullptr && hasTerminal->is_bool() && hasTerminal->get_bool();
  const std::string tail = count == 0 ? "all" : std::to_string(count);
  const std::string log =
      engine_.Get(container + "/logs?stdout=true&stderr=true&timestamps=true&tail=" + tail, patienceForLogs).Body;
  SplitEngineLog(log, isRaw ? LogForm::Raw : LogForm::Multiplexed, sink);
}

// Names are client input; paths contain the engine's own ids instead.
std::string EngineFleet::FindId(const std::string& name) const {
  for (const json::value& container : ToArray(engine_.GetJson("/containers/json?all=true", patienceForQuestions))) {
    if (container.is_object() && NameOf(container.get_object()) == name) return TextOf(container.get_object(), "Id");
  }
  throw Refusal("There is no container named \"" + name + "\".");
}

}  // namespace panel
