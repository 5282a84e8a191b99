#include <map>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>
#include <httplib.h>

#include "panel/EngineFleet.h"

namespace panel {
namespace {

// An engine with two containers on a Unix socket, which notes what it is asked.
class FakeEngine {
 public:
  FakeEngine() : path("panel-test-engine-" + std::to_string(getpid())) {
    server_.set_address_family(AF_UNIX);
    const auto answer = [this](const httplib::Request& request, httplib::Response& response) {
      asked.push_back(request.method + " " + request.target);
      const auto found = answers.find(request.path);
      response.status = found == answers.end() ? 404 : found->second.first;
      response.set_content(found == answers.end() ? R"({"message":"no such path"})" : found->second.second,
                           "text/plain");
    };
    server_.Get(".*", answer);
    server_.Post(".*", answer);
    server_.bind_to_port(path, 80);
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    while (!server_.is_running()) std::this_thread::yield();
  }
  FakeEngine(const FakeEngine&) = delete;
  FakeEngine& operator=(const FakeEngine&) = delete;
  ~FakeEngine() { Stop(); }
  void Stop() {
    server_.stop();
    if (thread_.joinable()) thread_.join();
    unlink(path.c_str());
  }

  std::string path;
  std::map<std::string, std::pair<int, std::string>> answers{
      {"/containers/json",
       {200, R"([{"Id":"22","Names":["/web/alias","/web"],"State":"running","Status":"Up 3 minutes"},
                 {"Id":"11","Names":["/mail"],"State":"exited","Status":"Exited (0) 2 days ago"}])"}},
      {"/images/json",
       {200, R"([{"RepoTags":["localhost/corvane-backup:web-20240501-123456","corvane-backup:web-20231231-235959"]},
                 {"RepoTags":null},{"RepoTags":["corvane-backup:web-mail-20250101-000000","busybox:latest"]}])"}},
  };
  std::vector<std::string> asked;

 private:
  httplib::Server server_;
  std::thread thread_;
};

std::string RefusalOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
  return "no refusal";
}

TEST(EngineFleet, ListsContainersByNameWithTheirNewestBackup) {
  const FakeEngine engine;
  std::string rows;
  for (const ContainerRow& row : EngineFleet(engine.path, "here").List()) {
    rows += row.name + "|" + row.state + "|" + row.status + "|" + row.backup + "\n";
  }
  EXPECT_EQ(rows, "mail|exited|Exited (0) 2 days ago|never\nweb|running|Up 3 minutes|2024-05-01 12:34 UTC\n");
}

TEST(EngineFleet, ActionsAskTheEngineAndTellItsAnswer) {
  struct Row {
    Action action;
    std::string path;
    int status;
    std::string asked;
    std::string told;
  };
  const std::string failed = "The container engine refused: out of order";
  const std::vector<Row> rows{
      {Action::Start, "/containers/22/start", 204, "POST /containers/22/start", "web has been started."},
      {Action::Start, "/containers/22/start", 304, "POST /containers/22/start", "web is running already."},
      {Action::Stop, "/containers/22/stop", 204, "POST /containers/22/stop?t=10", "web has been stopped."},
      {Action::Stop, "/containers/22/stop", 304, "POST /containers/22/stop?t=10", "web is stopped already."},
      {Action::Stop, "/containers/22/stop", 500, "POST /containers/22/stop?t=10", failed},
      {Action::Restart, "/containers/22/restart", 204, "POST /containers/22/restart?t=10", "web has been restarted."},
      {Action::Backup, "/commit", 201, "POST /commit?container=22&repo=corvane-backup&tag=web-2",
       "web has been backed up as the image corvane-backup:web-2"},
      {Action::Backup, "/commit", 409, "POST /commit?container=22&repo=corvane-backup&tag=web-2", failed},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.asked + " " + std::to_string(row.status));
    FakeEngine engine;
    EngineFleet fleet(engine.path, "here");
    engine.answers[row.path] = {row.status, row.status < 400 ? "" : R"({"message":"out of order"})"};
    std::string told;
    const std::string refusal = RefusalOf([&] { told = fleet.Act(row.action, "web"); });
    EXPECT_EQ((row.status < 400 ? told : refusal).substr(0, row.told.size()), row.told);
    ASSERT_EQ(engine.asked.size(), 2U);
    EXPECT_EQ(engine.asked[1].substr(0, row.asked.size()), row.asked);
  }
}

TEST(EngineFleet, OnlyExactNamesReachTheEngine) {
  FakeEngine engine;
  EngineFleet fleet(engine.path, "here");
  for (const std::string name : {"", "22", "we", "../web", "web/alias", "WEB"}) {
    EXPECT_EQ(RefusalOf([&] { fleet.Act(Action::Stop, name); }), "There is no container named \"" + name + "\".");
    EXPECT_EQ(engine.asked.back(), "GET /containers/json?all=true") << name;
  }
}

TEST(EngineFleet, LogsOfBothForms) {
  FakeEngine engine;
  EngineFleet fleet(engine.path, "here");
  std::vector<std::string> lines;
  const auto readLog = [&](const char* facts, const std::string& log, std::uint64_t count) {
    engine.answers["/containers/11/json"] = {200, facts};
    engine.answers["/containers/11/logs"] = {200, log};
    fleet.ReadLog("mail", count, [&](std::string_view line) { lines.emplace_back(line); });
    return engine.asked.back();
  };
  const std::string asked = "GET /containers/11/logs?stdout=true&stderr=true&timestamps=true&tail=";
  EXPECT_EQ(readLog(R"({"Config":{"Tty":true}})", "on a terminal\r\n", 0), asked + "all");
  EXPECT_EQ(readLog(R"({"Config":{"Tty":false}})", std::string("\2\0\0\0\0\0\0\6error\n", 14), 25), asked + "25");
  EXPECT_EQ(lines, (std::vector<std::string>{"on a terminal", "error"}));
}

TEST(EngineFleet, AnEngineThatIsGoneOrTalksNonsenseIsARefusal) {
  FakeEngine engine;
  EngineFleet fleet(engine.path, "here");
  for (const std::string nonsense : {"", "[", "{}", "7"}) {
    engine.answers["/containers/json"].second = nonsense;
    EXPECT_EQ(RefusalOf([&] { fleet.List(); }), "The container engine's answer cannot be understood.") << nonsense;
  }
  engine.Stop();
  EXPECT_EQ(RefusalOf([&] { fleet.List(); }), "The container engine cannot be reached.");
  EXPECT_EQ(RefusalOf([&] { static_cast<void>(fleet.Describe()); }), "The container engine cannot be reached.");
}

TEST(EngineFleet, DescribesThisMachine) {
  FakeEngine engine;
  engine.answers["/info"] = {200, R"({"ServerVersion":"4.3.1","DockerRootDir":"/"})"};
  const Information facts = EngineFleet(engine.path, "here").Describe();
  EXPECT_EQ(facts.systemDockerVersion, "4.3.1");
  EXPECT_EQ(facts.networkHostname, "here");
  EXPECT_EQ(facts.cpuCount, std::to_string(std::thread::hardware_concurrency()));
  EXPECT_GT(std::stod(facts.memoryTotal), std::stod(facts.memoryAvailable));
  EXPECT_GT(std::stod(facts.storageDiskSize), std::stod(facts.storageUsed));
  EXPECT_LE(std::stod(facts.cpuLoad), 100.0);
}

}  // namespace
}  // namespace panel
