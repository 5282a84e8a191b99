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

/// The members of a request that mean something; a member that is no string counts as empty.
struct Request {
  std::string username;
  std::string password;
  std::string containerName;
  std::string logCount;
};

std::optional<Request> Parse(const std::string& body) {
  // A client may send its last reply back, so a body can have millions of values: all are freed at once.
  json::monotonic_resource memory;
  boost::system::error_code error;
  const json::value parsed = json::parse(body, error, &memory);
  if (error || !parsed.is_object()) return std::nullopt;
  const json::object& members = parsed.get_object();
  return Request{.username = TextOf(members, "username"),
                 .password = TextOf(members, "password"),
                 .containerName = TextOf(members, "containerName"),
                 .logCount = TextOf(members, "logCount")};
}

std::string StatusReply(const std::string& status) { return json::serialize(json::object{{"status", status}}); }

std::string InformationReply(const Information& server) {
  return json::serialize(json::object{
      {"systemName", server.systemName},
      {"systemDescription", server.systemDescription},
      {"systemDataCenterLocation", server.systemDataCenterLocation},
      {"operatingSystemType", server.operatingSystemType},
      {"operatingSystemKernelVersion", server.operatingSystemKernelVersion},
      {"systemDockerVersion", server.systemDockerVersion},
      {"dunmereVersion", server.dunmereVersion},
      {"cpuArchitecture", server.cpuArchitecture},
      {"cpuCount", server.cpuCount},
      {"cpuLoad", server.cpuLoad},
      {"memoryTotal", server.memoryTotal},
      {"memoryAvailable", server.memoryAvailable},
      {"storageDiskSize", server.storageDiskSize},
      {"storageUsed", server.storageUsed},
      {"storageUsedPercentage", server.storageUsedPercentage},
      {"storageAvailable", server.storageAvailable},
      {"networkHostname", server.networkHostname},
      {"networkIPv4", server.networkIPv4},
      {"networkIPv6", server.networkIPv6},
  });
}

std::string ListReply(const std::vector<ContainerRow>& containers) {
  TableWriter table("containers");
  for (const ContainerRow& row : containers) table.AddRow({row.name, row.state, row.status, row.backup});
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
  fleet.ReadLog(request.containerName, ParseLogCount(request.logCount),
                [&](std::string_view line) { table.AddRow({line}); });
  return table.Finish();
}

template <Action action>
std::string ActionReply(Fleet& fleet, const Request& request) {
  return StatusReply(fleet.Act(action, request.containerName));
}

struct Call {
  std::string_view path;
  std::string (*answer)(Fleet&, const Request&);
};

// clang-format off
constexpr std::array<Call, 9> calls{{
  {"/api/v1/system/information",  [](Fleet& fleet, const Request&) { return InformationReply(fleet.Describe()); }},
  {"/api/v1/system/reboot",       [](Fleet& fleet, const Request&) { return StatusReply(fleet.Reboot()); }},
  {"/api/v1/system/reload",       [](Fleet& fleet, const Request&) { return StatusReply(fleet.Reload()); }},
  {"/api/v1/containers/list",     [](Fleet& fleet, const Request&) { return ListReply(fleet.List()); }},
  {"/api/v1/containers/restart",  ActionReply<Action::Restart>},
  {"/api/v1/containers/start",    ActionReply<Action::Start>},
  {"/api/v1/containers/stop",     ActionReply<Action::Stop>},
  {"/api/v1/containers/backup",   ActionReply<Action::Backup>},
  {"/api/v1/containers/logs",     LogReply},
}};
// clang-format on

}  // namespace

Service::Service(Credentials credentials, Fleet& fleet) : credentials_(std::move(credentials)), fleet_(fleet) {}

Reply Service::Answer(const std::string& path, const std::string& body) {
  const auto* call = std::find_if(calls.begin(), calls.end(), [&](const Call& row) { return row.path == path; });
  if (call == calls.end()) return MakeRefusal(HTTPStatus::notFound, "There is no such call.");
  const std::optional<Request> request = Parse(body);
  if (!request) return MakeRefusal(HTTPStatus::badRequest, "The request is no JSON object.");

  Reply reply;
  if (request->username != credentials_.user || request->password != credentials_.password) {
    reply = MakeRefusal(HTTPStatus::badRequest, "The username or the password is wrong.");
  } else {
    try {
      reply.body = call->answer(fleet_, *request);
    } catch (const Refusal& refusal) {
      reply = MakeRefusal(HTTPStatus::badRequest, refusal.what());
    }
  }
  reply.container = request->containerName;
  return reply;
}

Reply MakeRefusal(int status, const std::string& message) {
  return {.status = status, .body = json::serialize(json::object{{"_error", message}}), .container = {}};
}

}  // namespace panel
