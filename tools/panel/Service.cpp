#include "panel/Service.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

#include "panel/Json.h"
#include "panel/TableWriter.h"
#include "toolkit/HTTPStatus.h"
#include "toolkit/Text.h"

namespace panel {
namespace {

namespace json = boost::json;
namespace HTTPStatus = toolkit::HTTPStatus;

/// The relevant members of a request; one that is not a string counts as empty.
struct Request {
  std::string Username;
  std::string Password;
  std::string ContainerName;
  std::string LogCount;
};

std::optional<Request> Parse(const std::string& body) {
  // A client may send its last reply back, so a body can have millions of values: all are freed at once.
  json::monotonic_resource memory;
  boost::system::error_code error;
  const json::value parsed = json::parse(body, error, &memory);
  if (error || !parsed.is_object()) return std::nullopt;
  const json::object& members = parsed.get_object();
  return Request{.Username = TextOf(members, "username"),
                 .Password = TextOf(members, "password"),
                 .ContainerName = TextOf(members, "containerName"),
                 .LogCount = TextOf(members, "logCount")};
}

std::string StatusReply(const std::string& status) { return json::serialize(json::object{{"status", status}}); }

std::string InformationReply(const Information& server) {
  return json::serialize(json::object{
      {"systemName", server.SystemName},
      {"systemDescription", server.SystemDescription},
      {"systemDataCenterLocation", server.SystemDataCenterLocation},
      {"operatingSystemType", server.OperatingSystemType},
      {"operatingSystemKernelVersion", server.OperatingSystemKernelVersion},
      {"systemDockerVersion", server.SystemDockerVersion},
      {"dunmereVersion", server.DunmereVersion},
      {"cpuArchitecture", server.CPUArchitecture},
      {"cpuCount", server.CPUCount},
      {"cpuLoad", server.CPULoad},
      {"memoryTotal", server.MemoryTotal},
      {"memoryAvailable", server.MemoryAvailable},
      {"storageDiskSize", server.StorageDiskSize},
      {"storageUsed", server.StorageUsed},
      {"storageUsedPercentage", server.StorageUsedPercentage},
      {"storageAvailable", server.StorageAvailable},
      {"networkHostname", server.NetworkHostname},
      {"networkIPv4", server.NetworkIPv4},
      {"networkIPv6", server.NetworkIPv6},
  });
}

std::string ListReply(const std::vector<ContainerRow>& containers) {
  TableWriter table("containers");
  for (const ContainerRow& row : containers) table.AddRow({row.Name, row.State, row.Status, row.Backup});
  return table.Finish();
}

std::uint64_t ParseLogCount(const std::string& text) {
  const auto count = toolkit::ParseNumber<std::int64_t>(text);
  if (!count) throw Refusal("The number of log lines is no number.");
  if (*count < 0) throw Refusal("The number of log lines must not be negative.");
  return static_cast<std::uint64_t>(*count);
}

std::string LogReply(Fleet& fleet, const Request& request) {
  TableWriter table("log");
  fleet.ReadLog(request.ContainerName, ParseLogCount(request.LogCount),
                [&](std::string_view line) { table.AddRow({line}); });
  return table.Finish();
}

template <Action action>
std::string ActionReply(Fleet& fleet, const Request& request) {
  return StatusReply(fleet.Act(action, request.ContainerName));
}

struct Call {
  std::string_view Path;
  std::string (*Answer)(Fleet&, const Request&);
};

// clang-format off
constexpr auto calls = std::to_array<Call>({
  {"/api/v1/system/information",  [](Fleet& fleet, const Request&) { return InformationReply(fleet.Describe()); }},
  {"/api/v1/system/reboot",       [](Fleet& fleet, const Request&) { return StatusReply(fleet.Reboot()); }},
  {"/api/v1/system/reload",       [](Fleet& fleet, const Request&) { return StatusReply(fleet.Reload()); }},
  {"/api/v1/containers/list",     [](Fleet& fleet, const Request&) { return ListReply(fleet.List()); }},
  {"/api/v1/containers/restart",  ActionReply<Action::Restart>},
  {"/api/v1/containers/start",    ActionReply<Action::Start>},
  {"/api/v1/containers/stop",     ActionReply<Action::Stop>},
  {"/api/v1/containers/backup",   ActionReply<Action::Backup>},
  {"/api/v1/containers/logs",     LogReply},
});
// clang-format on

}  // namespace

Service::Service(Credentials credentials, Fleet& fleet) : credentials_(std::move(credentials)), fleet_(fleet) {}

Reply Service::Answer(const std::string& path, const std::string& body) {
  const auto* call = std::find_if(calls.begin(), calls.end(), [&](const Call& row) { return row.Path == path; });
  if (call == calls.end()) return MakeRefusal(HTTPStatus::notFound, "There is no such call.");
  const std::optional<Request> request = Parse(body);
  if (!request) return MakeRefusal(HTTPStatus::badRequest, "The request is no JSON object.");

  Reply reply;
  if (request->Username != credentials_.User || request->Password != credentials_.Password) {
    reply = MakeRefusal(HTTPStatus::badRequest, "The username or the password is wrong.");
  } else {
    try {
      reply.Body = call->Answer(fleet_, *request);
    } catch (const Refusal& refusal) {
      reply = MakeRefusal(HTTPStatus::badRequest, refusal.what());
    }
  }
  reply.Container = request->ContainerName;
  return reply;
}

Reply MakeRefusal(int status, const std::string& message) {
  return {.Status = status, .Body = json::serialize(json::object{{"_error", message}}), .Container = {}};
}

}  // namespace panel
