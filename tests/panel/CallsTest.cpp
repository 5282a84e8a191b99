#include <algorithm>
#include <set>

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include "panel/DemoFleet.h"
#include "panel/Service.h"

namespace panel {
namespace {

namespace json = boost::json;
using Texts = std::vector<std::string>;

/// The calls in front of an invented server.
class Calls : public testing::Test {
 protected:
  Reply Answer(const std::string& call, json::object members = {}) {
    members.insert({{"username", "ann"}, {"password", "s3cret"}});
    return service.Answer("/api/v1/" + call, json::serialize(members));
  }
  json::object Body(const std::string& call, json::object members = {}) {
    return json::parse(Answer(call, std::move(members)).body).as_object();
  }
  /// The cells of the row of one container, or empty.
  Texts RowOf(const std::string& container) {
    const json::object list = Body("containers/list");
    for (const auto& row : list.at("containers").as_object()) {
      auto cells = json::value_to<Texts>(row.value());
      if (cells.at(0) == container) return cells;
    }
    return {};
  }

  DemoFleet fleet{{.containers = 15, .logLines = 1200, .hostname = "here"}};
  Service service{{.user = "ann", .password = "s3cret"}, fleet};
};

TEST_F(Calls, EachAnswersWithItsMembersAndIgnoresUnknownOnes) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"system/reboot", "status"},      {"system/reload", "status"},    {"containers/list", "containers"},
      {"containers/restart", "status"}, {"containers/start", "status"}, {"containers/stop", "status"},
      {"containers/backup", "status"},  {"containers/logs", "log"},     {"system/information", "systemName"},
  };
  for (const auto& [call, member] : rows) {
    SCOPED_TRACE(call);
    const json::object body = Body(
        call, {{"containerName", "web"}, {"logCount", "3"}, {"status", nullptr}, {"containers", {{"0", {1, 2.5}}}}});
    ASSERT_TRUE(body.contains(member));
    EXPECT_EQ(body.at(member).is_string(), member != "containers" && member != "log");
    EXPECT_EQ(body.size(), call == "system/information" ? 19U : 1U);
  }
}

TEST_F(Calls, RefusalsSayWhyAndChangeNothing) {
  const std::string wrong = "The username or the password is wrong.";
  const std::string noNumber = "The number of log lines is no number.";
  const std::vector<std::tuple<std::string, json::object, std::string>> rows{
      {"containers/stop", {{"password", "S3cret"}, {"containerName", "web"}}, wrong},
      {"containers/stop", {{"username", "bob"}, {"containerName", "web"}}, wrong},
      {"containers/stop", {{"password", json::array{"s3cret"}}, {"containerName", "web"}}, wrong},
      {"containers/stop", {{"containerName", "Web"}}, "There is no container named \"Web\"."},
      {"containers/stop", {}, "There is no container named \"\"."},
      {"containers/logs", {{"containerName", "web"}, {"logCount", "7x"}}, noNumber},
      {"containers/logs", {{"containerName", "web"}, {"logCount", "9223372036854775808"}}, noNumber},
      {"containers/logs",
       {{"containerName", "web"}, {"logCount", "-1"}},
       "The number of log lines must not be negative."},
      {"system/stop", {{"containerName", "web"}}, "There is no such call."},
  };
  for (const auto& [call, members, error] : rows) {
    const Reply reply = Answer(call, members);
    EXPECT_EQ(json::parse(reply.body), (json::value{{"_error", error}}));
    EXPECT_EQ(reply.status, call == "system/stop" ? 404 : 400) << error;
  }
  for (const char* body : {"", "[{}]", "{", "{\"containerName\":\"web\xff\"}"}) {
    EXPECT_EQ(service.Answer("/api/v1/containers/stop", body).body, R"({"_error":"The request is no JSON object."})");
  }
  EXPECT_EQ(RowOf("web").at(1), "running");
}

TEST_F(Calls, ActionsChangeStateStatusAndBackup) {
  const std::string name = "service_dunmere";
  const std::vector<std::array<std::string, 4>> rows{
      {"start", " is running already.", "running", "Up 5 weeks"},
      {"stop", " has been stopped.", "exited", "Exited (0) "},
      {"stop", " is stopped already.", "exited", "Exited (0) "},
      {"start", " has been started.", "running", "Up "},
      {"restart", " has been restarted.", "running", "Up "},
      {"backup", " has been backed up.", "running", "Up "},
  };
  const Texts untouched = RowOf("web-2");
  const std::string oldBackup = RowOf(name).at(3);
  for (const auto& [action, told, state, status] : rows) {
    SCOPED_TRACE(action);
    EXPECT_EQ(Body("containers/" + action, {{"containerName", name}}), (json::object{{"status", name + told}}));
    const Texts cells = RowOf(name);
    EXPECT_EQ(cells.at(1), state);
    EXPECT_TRUE(cells.at(2).starts_with(status)) << cells.at(2);
    EXPECT_EQ(cells.at(3) != oldBackup, action == "backup");
  }
  EXPECT_EQ(RowOf("web-2"), untouched);
}

TEST_F(Calls, LogCountTakesTheLastLinesAndZeroTakesAll) {
  const auto logOf = [&](std::size_t count) {
    const json::object body = Body("containers/logs", {{"containerName", "web"}, {"logCount", std::to_string(count)}});
    const json::object& table = body.at("log").as_object();
    Texts lines;
    for (std::size_t row = 0; row < table.size(); ++row) {
      lines.push_back(json::value_to<Texts>(table.at(std::to_string(row))).at(0));
    }
    return lines;
  };
  const Texts all = logOf(0);
  ASSERT_EQ(all.size(), 1200U);
  EXPECT_TRUE(std::is_sorted(all.begin(), all.end())) << "each line starts with its time";
  for (const std::size_t count : {1U, 20U, 1199U, 1200U, 1201U}) {
    EXPECT_EQ(logOf(count), Texts(all.end() - static_cast<int>(std::min(count, all.size())), all.end())) << count;
  }
}

}  // namespace
}  // namespace panel
