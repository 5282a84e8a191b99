#include <stdexcept>

#include "service/TessenServicesClient.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/PushButton.h"
#include "toolkit/Timer.h"

using test_servers::FaultServer;
using testing::ElementsAre;
using toolkit::MsgBox;

namespace {

struct ButtonWindow final : toolkit::Window {
  ButtonWindow() : Window("Button", {300, 100}, {300, 100}, {300, 100}) {
    Add(Button, "button", {10, 10, 280, 30}, {}, 0);
  }
  toolkit::PushButton Button;
};

struct Program : Desktop {
  std::shared_ptr<ButtonWindow> model = std::make_shared<ButtonWindow>();
  QWidget& window = Open(model);
  std::shared_ptr<OtherWindow> other = std::make_shared<OtherWindow>();
};

TEST_F(Program, ABoxShowsAnyTextWithinTheScreen) {
  const std::pair<std::string, std::function<void(QDialog&)>> rows[] = {
      {"<b>no</b> &amp; <img>\nnext\tline", [](QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Space); }},
      {std::string(100'000, 'x'), [](QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Escape); }},
  };
  for (const auto& [text, close] : rows) {
    BoxReader reader([&, &close = close](QDialog& box) {
      EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry())) << box.frameGeometry().height();
      EXPECT_TRUE(box.rect().contains(box.findChild<QPushButton*>()->geometry()));
      close(box);
    });
    MsgBox(text);
    ASSERT_EQ(reader.Texts.size(), 1U);
    EXPECT_EQ(reader.Texts[0].substr(0, 40'000), text.substr(0, 40'000));
  }
}

TEST_F(Program, AWindowIsOpenOncePaintedAndLivesOn) {
  auto late = std::make_shared<ButtonWindow>();
  const std::weak_ptr<ButtonWindow> alive = late;
  std::string log;
  late->Paint = [&](toolkit::Graphics&) { log += log.empty() ? "painted" : ""; };
  late->Open = [&] {
    log += ", opened";
    platform.RunEventsUntil([&] { return late == nullptr; });
    log += alive.expired() ? ", destroyed" : "";
  };
  late->Show();
  EXPECT_EQ(log, "");
  QTimer::singleShot(50, [&] { std::exchange(late, nullptr)->Close(); });
  EXPECT_TRUE(Until([&] { return alive.expired(); }));
  EXPECT_EQ(log, "painted, opened");
}

TEST_F(Program, WhatHappensUnderABoxComesAfterwards) {
  const FaultServer server({{{test_servers::Reply(200, "{}")}}});
  std::vector<std::string> log;
  TessenServicesClient reload;
  TessenServicesClient stop;
  reload.ButtonPressed = [&log] { MsgBox("reload"), log.emplace_back("reload"); };
  stop.ButtonPressed = [&log] { MsgBox("stop"), log.emplace_back("stop"); };
  std::unique_ptr<toolkit::ChildProcess> process;
  toolkit::Timer timer;
  timer.Action = [&] { log.emplace_back("timer"); };
  other->Open = [&] { log.emplace_back("open"); };
  reload.Send("GET", server.URL());
  BoxReader reader([&](QDialog& box) {
    if (reader.Texts.size() == 1) {
      stop.Send("GET", server.URL());
      EXPECT_TRUE(Until([&] { return server.Answered() == 2; }));
      QTest::qWait(50);
      timer.Mode(toolkit::Timer::RunMode::Single);
      QTest::qWait(20);
      process = platform.StartProcess("true", [&](const toolkit::ProcessEnd&) { log.emplace_back("process"); });
      QTest::qWait(200);
      other->Show();
      QTest::qWait(100);
    }
    EXPECT_EQ(log.size(), reader.Texts.size() - 1) << "something has started";
    box.accept();
  });
  timer.Period = std::chrono::milliseconds(0);
  EXPECT_TRUE(Until([&] { return log.size() == 5; }));
  EXPECT_THAT(log, ElementsAre("reload", "stop", "timer", "process", "open"));
  EXPECT_THAT(reader.Texts, ElementsAre("reload", "stop"));
  EXPECT_EQ(reader.MostAtOnce, 1U);
}

TEST_F(Program, AnExceptionEndsInABoxAndNothingElse) {
  BoxReader reader;
  int presses = 0;
  model->Button.Action = [&] {
    if (++presses == 1) throw std::runtime_error("went <b>wrong</b>");
    if (presses == 2) throw 42;
  };
  for (int press = 0; press < 3; ++press) Click(Find("button"));
  EXPECT_THAT(reader.Texts, ElementsAre("went <b>wrong</b>", "Something went wrong that has no description."));
  EXPECT_EQ(presses, 3);
}

TEST_F(Program, AWindowMayRefuseToCloseButNotTheSession) {
  int presses = 0;
  model->Button.Role(toolkit::ButtonRole::Cancel).Action = [&] { ++presses; };
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  model->Button.Action = [&] { MsgBox("Really?"), ++presses; };
  EXPECT_EQ(app.Run([] { QCoreApplication::quit(); }), 0);
  EXPECT_EQ(presses, 2);
  EXPECT_TRUE(model->IsClosed());
}

TEST_F(Program, TheEndOfTheProgramEndsWaitsAndBoxes) {
  for (const bool isSession : {false, true}) {
    other->Show();
    BoxReader reader([&](QDialog&) { isSession ? QCoreApplication::quit() : platform.Quit(3); });
    bool hasWaited = false;
    toolkit::Timer timer;
    timer.Period = std::chrono::milliseconds(1);
    timer.Action = [&] {
      MsgBox("stands");
      platform.RunEventsUntil([] { return false; });
      hasWaited = true;
    };
    const int status = app.Run([&] {
      timer.Mode(toolkit::Timer::RunMode::Single);
      platform.RunEventsUntil([] { return false; });
      MsgBox("comes too late");
    });
    EXPECT_EQ(status, isSession ? 0 : 3);
    EXPECT_TRUE(hasWaited && other->IsClosed());
    EXPECT_THAT(reader.Texts, ElementsAre("stands"));
  }
}

}  // namespace
