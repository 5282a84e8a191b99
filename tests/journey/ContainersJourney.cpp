// The real windows in front of real containers. What happened is asked of the engine itself, not read off the screen.

#include <array>
#include <cstdio>
#include <cstdlib>

#include <QLineEdit>
#include <QTabWidget>
#include <boost/json.hpp>
#include <gmock/gmock.h>

#include "servercontrol/wContainerLogs.h"
#include "servercontrol/wServer.h"
#include "serverlist/wMain.h"
#include "tests/desktop/Desktop.h"

namespace {

namespace json = boost::json;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

/// What the script that started the engine tells by an environment variable.
std::string Told(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// What the engine answers to a GET.
std::string AskEngine(const std::string& path) {
  const std::string command =
      "curl --silent --max-time 20 --unix-socket '" + Told("CORVANE_ENGINE_SOCKET") + "' 'http://engine" + path + "'";
  std::string answer;
  std::array<char, 4096> part{};
  FILE* pipe = popen(command.c_str(), "r");
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe)) answer.append(part.data(), count);
  EXPECT_EQ(pclose(pipe), 0) << command;
  return answer;
}

json::object StateOf(const std::string& container) {
  return json::parse(AskEngine("/containers/" + container + "/json")).at("State").as_object();
}

class Containers : public Desktop {
 protected:
  void SetUp() override {
    Open(main);
    TypeInto("txtHostname", Told("CORVANE_PANEL_ADDRESS").c_str());
    TypeInto("txtUsername", Told("CORVANE_PANEL_USER").c_str());
    TypeInto("txtPassword", Told("CORVANE_PANEL_PASSWORD").c_str());
    Click(Find("btnAddServer"));
    ASSERT_TRUE(Until([&] { return main->listServers.ListCount() == 1; }));
    main->listServers.Select(0);
    main->listServers.Activate();
    ASSERT_TRUE(Until([&] { return server->list_overview.ListCount() == 19 && Row("web") >= 0; }));
    Find<QTabWidget>("tabs").setCurrentIndex(1);
  }

  int Row(const std::string& container) const {
    for (int row = 0; row < server->list_containers.ListCount(); ++row) {
      if (server->list_containers.Cell(row, 0) == container) return row;
    }
    return -1;
  }
  /// Selects the container, presses the button, reads the service's answer and waits for the fresh list.
  void Do(const char* button, const std::string& container) {
    ASSERT_TRUE(Until([&] { return Row(container) >= 0; }));
    server->list_containers.Select(Row(container));
    Click(Find(button));
    ASSERT_TRUE(Until([&] { return server->list_containers.ListIndex() == -1 && Row(container) >= 0; }));
  }

  BoxReader boxes;
  std::shared_ptr<wServer> server;
  std::shared_ptr<wMain> main = std::make_shared<wMain>([this](const auto& added) {
    server = std::make_shared<wServer>(added);
    server->Show();
  });
};

TEST_F(Containers, ReallyStopStartRestartAndShowTheirOwnLogs) {
  const std::string firstStart(StateOf("web").at("StartedAt").as_string());
  Do("btn_containers_stop", "web");
  EXPECT_FALSE(StateOf("web").at("Running").as_bool());
  EXPECT_TRUE(StateOf("chatty").at("Running").as_bool()) << "another container was stopped";

  Do("btn_containers_start", "web");
  EXPECT_TRUE(StateOf("web").at("Running").as_bool());
  const std::string secondStart(StateOf("web").at("StartedAt").as_string());
  EXPECT_NE(secondStart, firstStart);

  Do("btn_containers_restart", "web");
  EXPECT_TRUE(StateOf("web").at("Running").as_bool());
  EXPECT_NE(std::string(StateOf("web").at("StartedAt").as_string()), secondStart);
  EXPECT_THAT(boxes.Texts, SizeIs(3));

  server->list_containers.Select(Row("chatty"));
  Click(Find("btn_containers_logs"));
  ASSERT_TRUE(Until([&] { return platform.OpenWindows().size() == 3; }));
  const auto& list = dynamic_cast<wContainerLogs&>(*platform.OpenWindows().back()).list_logs;
  const std::string own = AskEngine("/containers/chatty/logs?stdout=1&stderr=1&tail=20");
  const std::string others = AskEngine("/containers/web/logs?stdout=1&stderr=1&tail=20");
  ASSERT_EQ(list.ListCount(), 20);
  for (int row = 0; row < list.ListCount(); ++row) {
    // The service puts the time and a blank before the line.
    const std::string line(list.Cell(row, 0).substr(list.Cell(row, 0).find(' ') + 1));
    EXPECT_THAT(own, HasSubstr(line)) << row;
    EXPECT_THAT(others, Not(HasSubstr(line))) << row;
  }
}

}  // namespace
