// The real windows in front of real containers. What happened is asked of the engine itself, not read off the screen.

#include <QProcess>
#include <QTabWidget>
#include <boost/json/parse.hpp>
#include <gmock/gmock.h>

#include "servercontrol/wContainerLogs.h"
#include "servercontrol/wServer.h"
#include "serverlist/wMain.h"
#include "tests/desktop/Desktop.h"

namespace {

namespace json = boost::json;
using testing::AnyOf;
using testing::Not;
using testing::SizeIs;

/// What the script that started the engine tells by an environment variable.
std::string Told(const char* name) { return qgetenv(name).toStdString(); }

/// What the engine answers to a GET.
std::string AskEngine(const std::string& path) {
  QProcess curl;
  curl.start("curl", {"--silent", "--max-time", "20", "--unix-socket", qgetenv("CORVANE_ENGINE_SOCKET"),
                      QString::fromStdString("http://engine" + path)});
  EXPECT_TRUE(curl.waitForFinished());
  return curl.readAll().toStdString();
}

/// When the container was started, or nothing if it does not run.
std::string RunsSince(const std::string& container) {
  const json::value answer = json::parse(AskEngine("/containers/" + container + "/json"));
  const json::object& state = answer.at("State").as_object();
  return state.at("Running").as_bool() ? state.at("StartedAt").as_string().c_str() : "";
}

class Containers : public Desktop {
 protected:
  void SetUp() override {
    Open(main);
    TypeInto("txtHostname", Told("CORVANE_PANEL_ADDRESS"));
    TypeInto("txtUsername", Told("CORVANE_PANEL_USER"));
    TypeInto("txtPassword", Told("CORVANE_PANEL_PASSWORD"));
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

  /// The lines that a log window shows, without the time and the blank that the service puts before each.
  std::vector<std::string> LogOf(const std::string& container) {
    const std::size_t windows = platform.OpenWindows().size();
    server->list_containers.Select(Row(container));
    Click(Find("btn_containers_logs"));
    EXPECT_TRUE(Until([&] { return platform.OpenWindows().size() > windows; }));
    const auto& list = dynamic_cast<wContainerLogs&>(*platform.OpenWindows().back()).list_logs;
    std::vector<std::string> lines;
    for (int row = 0; row < list.ListCount(); ++row) {
      lines.emplace_back(list.Cell(row, 0).substr(list.Cell(row, 0).find(' ') + 1));
    }
    return lines;
  }

  BoxReader boxes;
  std::shared_ptr<wServer> server;
  std::shared_ptr<wMain> main = std::make_shared<wMain>([this](const auto& added) {
    server = std::make_shared<wServer>(added);
    server->Show();
  });
};

TEST_F(Containers, ReallyStopStartRestartAndShowTheirOwnLogs) {
  const std::string firstStart = RunsSince("web");
  Do("btn_containers_stop", "web");
  EXPECT_EQ(RunsSince("web"), "");
  EXPECT_NE(RunsSince("chatty"), "") << "another container was stopped";
  Do("btn_containers_start", "web");
  const std::string secondStart = RunsSince("web");
  EXPECT_THAT(secondStart, Not(AnyOf("", firstStart)));
  Do("btn_containers_restart", "web");
  EXPECT_THAT(RunsSince("web"), Not(AnyOf("", secondStart)));
  EXPECT_THAT(boxes.Texts, SizeIs(3));

  std::vector<std::string> last;
  for (int line = 1981; line <= 2000; ++line) last.push_back("line " + std::to_string(line));
  EXPECT_EQ(LogOf("chatty"), last);
  EXPECT_EQ(LogOf("terminal"), std::vector<std::string>{"on a terminal"});
  EXPECT_THAT(LogOf("errors"), testing::UnorderedElementsAre("to the output", "to the errors", "no UTF-8: \uFFFD"));
}

}  // namespace
