#include <QDialog>
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

  FaultServer server{{everything, everything, {everything.Pieces, Answer::Then::Keep, Answer::Start::WhenReleased}}};
  std::shared_ptr<CorvaneServer> record = std::make_shared<CorvaneServer>(
      CorvaneServer{"127.0.0.1:" + std::to_string(server.Port()) + "/x", "", "pw", "", "amy"});
  std::shared_ptr<wServer> model = std::make_shared<wServer>(record);
  QWidget& window = Open(model);
};

}  // namespace

TEST_F(ServerWindowOnScreen, TheKeyboardAloneStopsAContainer) {
  BoxReader reader;
  Find("qt_tabwidget_tabbar").setFocus();
  Press(Qt::Key_Right);
  EXPECT_EQ(model->tabs.Value(), 2);
  Press(Qt::Key_Tab);
  Press(Qt::Key_Down);
  ASSERT_TRUE(Until([] { return Find("txt_containers_logs").isEnabled(); }));
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
