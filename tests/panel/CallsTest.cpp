#include <chrono>
#include <future>
#include <set>

#include <gtest/gtest.h>

#include "PanelProgram.h"

namespace panel_test {
namespace {

namespace json = boost::json;
using namespace std::chrono_literals;

// The cells of the row of one container, or empty.
std::vector<std::string> RowOf(const Panel& panel, const std::string& container) {
  const json::object list = panel.Call("/api/v1/containers/list").body;
  for (const auto& row : list.at("containers").as_object()) {
    auto cells = json::value_to<std::vector<std::string>>(row.value());
    if (cells.at(0) == container) return cells;
  }
  return {};
}

std::vector<std::string> LogOf(const Panel& panel, const std::string& count) {
  const auto reply = panel.Call("/api/v1/containers/logs", {{"containerName", "web"}, {"logCount", count}});
  const json::object& table = reply.body.at("log").as_object();
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < table.size(); ++i) {
    lines.push_back(json::value_to<std::string>(table.at(std::to_string(i)).as_array().at(0)));
  }
  return lines;
}

TEST(Calls, EachAnswersWithItsMembersAndIgnoresUnknownOnes) {
  struct Row {
    std::string path;
    std::set<std::string> members;
  };
  const std::vector<Row> rows{
      {"/api/v1/system/information",
       {"systemName", "systemDescription", "systemDataCenterLocation", "operatingSystemType",
        "operatingSystemKernelVersion", "systemDockerVersion", "dunmereVersion", "cpuArchitecture", "cpuCount",
        "cpuLoad", "memoryTotal", "memoryAvailable", "storageDiskSize", "storageUsed", "storageUsedPercentage",
        "storageAvailable", "networkHostname", "networkIPv4", "networkIPv6"}},
      {"/api/v1/system/reboot", {"status"}},
      {"/api/v1/system/reload", {"status"}},
      {"/api/v1/containers/list", {"containers"}},
      {"/api/v1/containers/restart", {"status"}},
      {"/api/v1/containers/start", {"status"}},
      {"/api/v1/containers/stop", {"status"}},
      {"/api/v1/containers/backup", {"status"}},
      {"/api/v1/containers/logs", {"log"}},
  };
  const Panel panel;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.path);
    const auto reply = panel.Call(row.path, {{"containerName", "web"},
                                             {"logCount", "3"},
                                             {"status", nullptr},
                                             {"containers", {{"0", {1, 2.5, json::object()}}}}});
    EXPECT_EQ(reply.status, 200);
    std::set<std::string> members;
    for (const auto& member : reply.body) {
      members.insert(member.key());
      EXPECT_TRUE(member.value().is_string() == (member.key() != "containers" && member.key() != "log"));
    }
    EXPECT_EQ(members, row.members);
  }
}

TEST(Calls, RefusalsSayWhyAndChangeNothing) {
  struct Row {
    std::string path;
    std::string body;
    int status;
    std::string error;
  };
  const std::string right = R"({"username":"ann","password":"s3cret",)";
  const std::string wrong = "The username or the password is wrong.";
  const std::string noObject = "The request is no JSON object.";
  const std::string noNumber = "The number of log lines is no number.";
  const std::string stop = "/api/v1/containers/stop";
  const std::string logs = "/api/v1/containers/logs";
  const std::vector<Row> rows{
      {stop, R"({"username":"ann","password":"S3cret","containerName":"web"})", 400, wrong},
      {stop, R"({"username":"bob","password":"s3cret","containerName":"web"})", 400, wrong},
      {stop, R"({"username":"ann","containerName":"web"})", 400, wrong},
      {stop, R"({"username":"ann","password":["s3cret"],"containerName":"web"})", 400, wrong},
      {stop, "{}", 400, wrong},
      {stop, "", 400, noObject},
      {stop, "[" + right + R"("containerName":"web"}])", 400, noObject},
      {stop, right + R"("containerName":"web")", 400, noObject},
      {stop, right + "\"containerName\":\"web\xff\"}", 400, noObject},
      {stop, right + R"("containerName":"Web"})", 400, "There is no container named \"Web\"."},
      {stop, right + R"("x":1})", 400, "There is no container named \"\"."},
      {logs, right + R"("containerName":"nine","logCount":"1"})", 400, "There is no container named \"nine\"."},
      {logs, right + R"("containerName":"web","logCount":"-1"})", 400, "The number of log lines must not be negative."},
      {logs, right + R"("containerName":"web","logCount":"7x"})", 400, noNumber},
      {logs, right + R"("containerName":"web","logCount":"9223372036854775808"})", 400, noNumber},
      {logs, right + R"("containerName":"web"})", 400, noNumber},
      {"/api/v1/containers/stop/", right + R"("containerName":"web"})", 404, "There is no such call."},
      {"/api/v1/system/stop", right + R"("containerName":"web"})", 404, "There is no such call."},
  };
  const Panel panel;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.path + " " + row.body);
    const auto reply = panel.Post(row.path, row.body);
    EXPECT_EQ(reply.status, row.status);
    EXPECT_EQ(reply.body, (json::object{{"_error", row.error}}));
  }
  EXPECT_EQ(RowOf(panel, "web").at(1), "running");
}

TEST(Calls, ActionsChangeStateStatusAndBackup) {
  struct Row {
    std::string action;
    std::string reply;
    std::string state;
    std::string status;
  };
  const std::string name = "service_dunmere";
  const std::vector<Row> rows{
      {"start", name + " is running already.", "running", "Up 5 weeks"},
      {"stop", name + " has been stopped.", "exited", "Exited (0) "},
      {"stop", name + " is stopped already.", "exited", "Exited (0) "},
      {"start", name + " has been started.", "running", "Up "},
      {"restart", name + " has been restarted.", "running", "Up "},
      {"stop", name + " has been stopped.", "exited", "Exited (0) "},
      {"restart", name + " has been restarted.", "running", "Up "},
      {"backup", name + " has been backed up.", "running", "Up "},
  };
  const Panel panel("--containers 15");
  const std::vector<std::string> untouched = RowOf(panel, "web-2");
  const std::string oldBackup = RowOf(panel, name).at(3);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.action);
    const auto reply = panel.Call("/api/v1/containers/" + row.action, {{"containerName", name}});
    EXPECT_EQ(reply.body, (json::object{{"status", row.reply}}));
    const std::vector<std::string> cells = RowOf(panel, name);
    EXPECT_EQ(cells.at(1), row.state);
    EXPECT_EQ(cells.at(2).substr(0, row.status.size()), row.status);
    EXPECT_EQ(cells.at(2).find("second") == std::string::npos, row.status == "Up 5 weeks") << cells.at(2);
    EXPECT_EQ(cells.at(3) != oldBackup, row.action == "backup");
  }
  EXPECT_EQ(RowOf(panel, "web-2"), untouched);
}

TEST(Calls, LogCountTakesTheLastLinesAndZeroTakesAll) {
  const Panel panel("--log-lines 1200");
  const std::vector<std::string> all = LogOf(panel, "0");
  ASSERT_EQ(all.size(), 1200U);
  EXPECT_TRUE(std::is_sorted(all.begin(), all.end())) << "each line starts with its time";
  for (const std::size_t count : {1U, 20U, 1199U, 1200U, 1201U}) {
    const auto first = all.end() - static_cast<std::ptrdiff_t>(std::min(count, all.size()));
    EXPECT_EQ(LogOf(panel, std::to_string(count)), std::vector<std::string>(first, all.end())) << count;
  }
}

TEST(Calls, ALargeReplyCanBeSentBack) {
  const Panel panel("--containers 10000 --log-lines 200000");
  const auto log = panel.Call("/api/v1/containers/logs", {{"containerName", "web"}, {"logCount", "0"}});
  ASSERT_EQ(log.body.at("log").as_object().size(), 200'000U);
  EXPECT_NEAR(static_cast<double>(log.size) / 200'000, 107, 3) << "bytes a line, on which measurements count";
  EXPECT_EQ(panel.Call("/api/v1/containers/list", log.body).body.at("containers").as_object().size(), 10'000U);
}

TEST(Calls, OneConnectionServesManyRequestsAndAnotherIsServedMeanwhile) {
  const Panel panel;
  for (int i = 0; i < 50; ++i) EXPECT_EQ(panel.Call("/api/v1/containers/list").status, 200);
  EXPECT_EQ(SSL_CTX_sess_connect(panel.client->ssl_context()), 1) << "connections made";

  const auto second = panel.NewClient();
  auto reload = std::async(std::launch::async, [&] {
    return second->Post("/api/v1/system/reload", R"({"username":"ann","password":"s3cret"})", "application/json");
  });
  EXPECT_EQ(panel.Call("/api/v1/containers/list").status, 200);
  EXPECT_NE(reload.wait_for(0s), std::future_status::ready) << "the list had to wait for the reload";
  EXPECT_EQ(reload.get()->status, 200);
}

}  // namespace
}  // namespace panel_test
