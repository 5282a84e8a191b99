#include <QApplication>
#include <QDialog>
#include <QMenuBar>
#include <QTabWidget>
#include <gmock/gmock.h>

#include "servercontrol/wServer.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"

using namespace test_servers;
using namespace testing;

namespace {

/// One reply that suits every call.
const Answer everything{{test_servers::Reply(
    200, R"({"status":"<b>Done</b>","systemName":"edge","containers":{"0":["web","running","Up"]}})")}};

/// A server window that has loaded. What it asks for next is answered when the server is released.
struct ServerWindowOnScreen : Desktop {
  ServerWindowOnScreen() {
    EXPECT_TRUE(Until([this] { return model->list_containers.ListCount() + model->list_overview.ListCount() == 20; }));
  }
  /// Where the Tab key leads, until it comes round.
  static std::vector<std::string> Round() {
    std::vector<std::string> names;
    do {
      names.push_back(Focused());
      Press(Qt::Key_Tab);
    } while (names.size() < 20 && Focused() != names.front());
    return names;
  }

  FaultServer server{{everything, everything, {everything.Pieces, Answer::Then::Keep, Answer::Start::WhenReleased}}};
  std::shared_ptr<CorvaneServer> record = std::make_shared<CorvaneServer>(
      CorvaneServer{"127.0.0.1:" + std::to_string(server.Port()) + "/x", "", "pw", "", "amy"});
  std::shared_ptr<wServer> model = std::make_shared<wServer>(record);
  QWidget& window = Open(model);
};

}  // namespace

TEST_F(ServerWindowOnScreen, OnlyTheListsGrowAndOnlyOneTabShows) {
  const std::tuple<const char*, int, QRect, bool> rows[] = {
      // the panel, 0 for both and 3 for none; whether it grows
      // clang-format off
      {"tabs", 0, {20, 0, 760, 480}, true},
      {"list_overview", 1, {40, 70, 720, 390}, true}, {"btn_overview_refresh", 1, {40, 38, 160, 20}, false},
      {"btn_overview_restart", 1, {635, 38, 125, 20}, false}, {"btn_overview_webui", 1, {212, 38, 125, 20}, false},
      {"list_containers", 2, {40, 70, 720, 390}, true}, {"btn_containers_refresh", 2, {40, 38, 160, 20}, false},
      {"btn_containers_restart", 2, {212, 38, 80, 20}, false}, {"btn_containers_start", 2, {304, 38, 80, 20}, false},
      {"btn_containers_stop", 2, {396, 38, 80, 20}, false}, {"btn_containers_logs", 2, {618, 38, 80, 20}, false},
      {"txt_containers_logs", 2, {710, 37, 50, 22}, false}, {"btn_overview_reload", 1, {498, 38, 125, 20}, false},
      {"overview_progress", 3, {470, 41, 16, 16}, false}, {"btn_containers_backup", 3, {488, 38, 80, 20}, false},
      // clang-format on
  };
  const int menus = Find<QMenuBar>("").height();  // places count from below them
  for (const auto& [wanted, grown] : {std::pair(QSize(1000, 700), QSize(200, 200)), {QSize(10, 10), QSize(0, 0)}}) {
    window.resize(wanted + QSize(0, menus));
    QTest::qWait(10);
    EXPECT_TRUE(window.size() == QSize(800, 500 + menus) + grown);
    for (const int panel : {1, 2}) {
      Find<QTabWidget>("tabs").setCurrentIndex(panel - 1);
      QTest::qWait(5);
      for (const auto& [name, of, designed, grows] : rows) {
        SCOPED_TRACE(name + std::to_string(panel));
        const QWidget& view = Find(name);
        const QRect place(view.mapTo(&window, QPoint(0, -menus)), view.size());
        EXPECT_TRUE(!view.isVisible() ||
                    place == QRect(designed.topLeft(), designed.size() + (grows ? grown : QSize(0, 0))));
        EXPECT_EQ(view.isVisible(), of == 0 || of == panel);
        EXPECT_FALSE(view.accessibleName().isEmpty());
      }
    }
  }
  EXPECT_EQ(window.windowTitle(), "Corvane - Server Control Panel");
}

TEST_F(ServerWindowOnScreen, TheKeyboardAloneReachesAndWorksEverything) {
  BoxReader reader;
  EXPECT_THAT(Round(), ElementsAre("qt_tabwidget_tabbar", "list_overview", "btn_overview_refresh",
                                   "btn_overview_restart", "btn_overview_webui", "btn_overview_reload"));
  Press(Qt::Key_Right);
  EXPECT_EQ(model->tabs.Value(), 2);
  EXPECT_THAT(Round(), ElementsAre("qt_tabwidget_tabbar", "list_containers", "btn_containers_refresh"));
  Press(Qt::Key_Tab);
  Press(Qt::Key_Down);
  QTest::qWait(5);
  EXPECT_THAT(Round(),
              ElementsAre("list_containers", "btn_containers_refresh", "btn_containers_restart", "btn_containers_start",
                          "btn_containers_stop", "btn_containers_logs", "txt_containers_logs", "qt_tabwidget_tabbar"));
  for (int step = 0; step < 6; ++step) Press(Qt::Key_Tab);
  Press(Qt::Key_7);
  EXPECT_EQ(model->txt_containers_logs.Text(), "7") << "Tab selects the text, so that typing replaces it";
  for (int step = 0; step < 2; ++step) Press(Qt::Key_Backtab, Qt::ShiftModifier);
  Press(Qt::Key_Space);
  ASSERT_TRUE(Until([this] { return server.Requests().size() == 3; }));
  EXPECT_THAT(server.Requests()[2], AllOf(HasSubstr("/containers/stop HTTP"), HasSubstr(R"("containerName":"web")")));
  EXPECT_EQ(model->list_containers.ListIndex(), 0);
  server.Release();
  ASSERT_TRUE(Until([this] { return server.Requests().size() == 4 && model->btn_containers_refresh.Enabled(); }));
  EXPECT_THAT(server.Requests()[3], HasSubstr("/containers/list HTTP"));
  EXPECT_THAT(reader.Texts, ElementsAre("<b>Done</b>"));
  EXPECT_TRUE(Until([] { return !Find("btn_containers_stop").isEnabled(); }));
}

TEST_F(ServerWindowOnScreen, TheWheelTurnsUntilTheReloadsBoxIsGone) {
  QWidget& wheel = Find("overview_progress");
  const auto picture = [&] { return window.grab(QRect(wheel.mapTo(&window, QPoint()), wheel.size())).toImage(); };
  const QImage nothing = picture();
  Click(Find("btn_overview_reload"));
  const QImage first = picture();
  EXPECT_TRUE(first != nothing);
  EXPECT_TRUE(Until([&] { return picture() != first; }));
  bool wasBusy = false;
  BoxReader reader([&](QDialog& box) {
    wasBusy = wheel.isVisible() && !Find("btn_overview_reload").isEnabled();
    QTest::keyClick(box.windowHandle(), Qt::Key_Return);
  });
  server.Release();
  EXPECT_TRUE(Until([&] { return Find("btn_overview_reload").isEnabled(); }));
  EXPECT_TRUE(wasBusy);
  EXPECT_FALSE(wheel.isVisible());
  EXPECT_TRUE(picture() == nothing);
}

TEST_F(ServerWindowOnScreen, ItsKeyQuitsTheProgram) {
  EXPECT_EQ(app.Run([] { Press(Qt::Key_Q, Qt::ControlModifier); }), 0);
}
