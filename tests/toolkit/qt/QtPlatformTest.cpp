#include <stdexcept>

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/PushButton.h"

using testing::ElementsAre;
using toolkit::MsgBox;

namespace {

struct ButtonWindow final : toolkit::Window {
  ButtonWindow() : Window("Button", {300, 100}, {300, 100}, {300, 100}) {
    Add(Button, "button", {10, 10, 280, 30}, {}, 0);
  }
  toolkit::PushButton Button;
};

/// Sees whether a button was painted in any window but `other`.
class PaintWatch final : public QObject {
 public:
  explicit PaintWatch(const QWidget& other) : other_(other) { qApp->installEventFilter(this); }
  bool HasSeen = false;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    const auto* button = qobject_cast<QPushButton*>(object);
    HasSeen = HasSeen || (button != nullptr && event->type() == QEvent::Paint && button->window() != &other_);
    return false;
  }

 private:
  const QWidget& other_;
};

struct Program : Desktop {
  std::shared_ptr<ButtonWindow> model = std::make_shared<ButtonWindow>();
  QWidget& window = Open(model);
  std::shared_ptr<OtherWindow> other = std::make_shared<OtherWindow>();
};

TEST_F(Program, ABoxShowsAnyTextAsItIsWithinTheScreenAndAnyWayOfClosingClosesIt) {
  const std::pair<std::string, std::function<void(QDialog&)>> rows[] = {
      {"", [](QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Escape); }},
      {"<b>no</b> &amp; <img>\nnext\tline", [](QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Space); }},
      {std::string(100'000, 'x'), [](QDialog& box) { box.close(); }},
      {QString("line\n").repeated(20'000).toStdString(), [](QDialog& box) { Click(*box.findChild<QPushButton*>()); }},
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

// A window whose handler waits must be seen first, and live on while it waits.
TEST_F(Program, AWindowIsOpenOnceItHasBeenPaintedAndStaysAliveWhileItsHandlerWaits) {
  const auto late = std::make_shared<ButtonWindow>();
  const PaintWatch watch(window);
  bool isPainted = false;
  int opened = 0;
  bool mayGoOn = false;
  late->Open = [&] {
    ++opened;
    isPainted = watch.HasSeen;
    platform.RunEventsUntil([&] { return mayGoOn; });
  };
  late->Show();
  EXPECT_EQ(opened, 0);
  QTimer::singleShot(50, [&] {
    late->Close();
    mayGoOn = true;
  });
  EXPECT_TRUE(Until([&] { return mayGoOn; }));
  EXPECT_EQ(opened, 1);
  EXPECT_TRUE(isPainted);
}

TEST_F(Program, BoxesComeOneAfterTheOtherInOrder) {
  model->Button.Action = [] {
    QTimer::singleShot(0, [] { MsgBox("second"), MsgBox("after the second"); });
    QTimer::singleShot(1, [] { MsgBox("third"); });
    MsgBox("first");
  };
  BoxReader reader;
  Click(Find("button"));
  EXPECT_TRUE(Until([&] { return reader.Texts.size() == 4; }));
  QTest::qWait(50);
  EXPECT_THAT(reader.Texts, ElementsAre("first", "second", "third", "after the second"));
  EXPECT_EQ(reader.MostAtOnce, 1U);
}

TEST_F(Program, AnExceptionEndsInABoxAndTheProgramGoesOn) {
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

TEST_F(Program, AWindowMayCloseUnderABoxOfItsOwnHandler) {
  other->Show();
  BoxReader reader([&](QDialog& box) {
    model->Close();
    QTest::qWait(20);
    QTest::keyClick(box.windowHandle(), Qt::Key_Return);
  });
  std::string title;
  model->Button.Action = [&] {
    MsgBox("closing");
    title = std::exchange(model, nullptr)->Title();
  };
  const std::weak_ptr<ButtonWindow> closed = model;
  Click(Find("button"));
  EXPECT_TRUE(Until([&] { return closed.expired(); }));
  EXPECT_EQ(title, "Button");
}

TEST_F(Program, TheLoopEndsWithTheLastWindowAndNotBefore) {
  bool wentOn = false;
  const auto endLater = [&] { QTimer::singleShot(50, [&] { wentOn = true, other->Close(); }); };
  EXPECT_EQ(app.Run([&] { other->Show(), window.close(), endLater(); }), 0);
  EXPECT_TRUE(wentOn);
}

TEST_F(Program, QuittingEndsEveryWaitAndEveryBoxThatStandsOrWaits) {
  BoxReader reader([](QDialog&) { toolkit::Quit(3); });
  bool hasWaited = false;
  const int status = app.Run([&] {
    QTimer::singleShot(0, [&] { MsgBox("waits"), hasWaited = true; });
    MsgBox("stands");
    platform.RunEventsUntil([] { return false; });
  });
  EXPECT_EQ(status, 3);
  EXPECT_TRUE(hasWaited);
  EXPECT_THAT(reader.Texts, ElementsAre("stands"));
}

}  // namespace
