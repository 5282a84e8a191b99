#include <stdexcept>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/Label.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/PushButton.h"

using testing::ElementsAre;
using testing::SizeIs;
using toolkit::MsgBox;

namespace {

class ButtonWindow final : public toolkit::Window {
 public:
  ButtonWindow() : Window("Button", {300, 100}, {300, 100}, {300, 100}) {
    Add(Button, "button", {10, 10, 280, 30}, {}, 0).Caption("<b>bold</b> & co");
    Add(Text, "label", {10, 50, 280, 30}, {}, 1);
  }
  toolkit::PushButton Button;
  toolkit::Label Text;
};

class Program : public Desktop {
 protected:
  std::shared_ptr<ButtonWindow> model = std::make_shared<ButtonWindow>();
  QWidget& window = Open(model);
  QPushButton& button = Find<QPushButton>("button");
};

TEST_F(Program, ABoxShowsAnyTextAsItIsWithinTheScreenAndAnyWayOfClosingClosesIt) {
  const QRect screen = window.screen()->availableGeometry();
  const auto key = [](Qt::Key pressed) {
    return [pressed](QDialog& box) { QTest::keyClick(box.windowHandle(), pressed); };
  };
  const struct {
    std::string text;
    bool scrolls;
    std::function<void(QDialog&)> close;
  } rows[] = {
      {"short", false, key(Qt::Key_Escape)},
      {"", false, key(Qt::Key_Return)},
      {"<b>no</b> &amp; <img src=x>\nsecond\tline", false, key(Qt::Key_Enter)},
      {std::string(300, 'w'), false, key(Qt::Key_Space)},
      {std::string(100'000, 'x'), true, [](QDialog& box) { box.close(); }},
      {[] {
         std::string lines;
         while (lines.size() < 100'000) lines += "line\n";
         return lines;
       }(),
       true, [](QDialog& box) { Click(*box.findChild<QPushButton*>()); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text.substr(0, 20));
    bool isSeen = false;
    BoxReader reader([&](QDialog& box) {
      isSeen = true;
      EXPECT_TRUE(screen.contains(box.frameGeometry()))
          << box.frameGeometry().width() << " x " << box.frameGeometry().height();
      EXPECT_TRUE(box.rect().contains(box.findChild<QPushButton*>()->geometry()));
      EXPECT_EQ(box.findChild<QPlainTextEdit*>()->verticalScrollBar()->maximum() > 0, row.scrolls);
      row.close(box);
    });
    MsgBox(row.text);
    ASSERT_TRUE(isSeen);
    ASSERT_THAT(reader.Texts, SizeIs(1));
    EXPECT_EQ(reader.Texts[0].substr(0, 40'000), row.text.substr(0, 40'000));
  }
}

TEST_F(Program, BoxesComeOneAfterTheOtherInOrder) {
  model->Button.Action = [] {
    QTimer::singleShot(0, [] { MsgBox("second"), MsgBox("after the second"); });
    QTimer::singleShot(1, [] { MsgBox("third"); });
    MsgBox("first");
  };
  BoxReader reader;
  Click(button);
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
  for (int press = 0; press < 3; ++press) Click(button);
  EXPECT_THAT(reader.Texts, ElementsAre("went <b>wrong</b>", "Something went wrong that has no description."));
  EXPECT_EQ(presses, 3);
}

TEST_F(Program, AWindowMayCloseInItsOwnHandlerAndUnderItsOwnBox) {
  const auto other = std::make_shared<OtherWindow>();
  other->Show();
  bool isLiveAfterBox = false;
  BoxReader reader([&](QDialog& box) {
    model->Close();
    QTest::qWait(20);
    QTest::keyClick(box.windowHandle(), Qt::Key_Return);
  });
  model->Button.Action = [&] {
    MsgBox("closing");
    isLiveAfterBox = model->IsClosed() && model->Text.Text().empty();
    model.reset();
  };
  const std::weak_ptr<ButtonWindow> watched = model;
  Click(button);
  EXPECT_TRUE(Until([&] { return watched.expired(); }));
  EXPECT_TRUE(isLiveAfterBox);
  EXPECT_THAT(platform.OpenWindows(), ElementsAre(other));
}

TEST_F(Program, TheLoopEndsWithTheLastWindowAndNotBefore) {
  const auto other = std::make_shared<OtherWindow>();
  std::vector<std::string> log;
  const int status = app.Run([&] {
    other->Show();
    window.close();
    QTimer::singleShot(50, [&] {
      log.emplace_back("still running");
      other->Close();
      other->Close();
    });
  });
  EXPECT_EQ(status, 0);
  EXPECT_THAT(log, ElementsAre("still running"));
}

TEST_F(Program, QuittingEndsEveryBoxThatStandsOrWaits) {
  BoxReader reader([](QDialog&) { toolkit::Quit(3); });
  std::vector<std::string> log;
  const int status = app.Run([&] {
    QTimer::singleShot(0, [&] { MsgBox("waits"), log.emplace_back("waited"); });
    MsgBox("stands"), log.emplace_back("stood");
  });
  EXPECT_EQ(status, 3);
  EXPECT_THAT(log, testing::UnorderedElementsAre("stood", "waited"));
  EXPECT_THAT(reader.Texts, ElementsAre("stands"));
}

TEST_F(Program, CaptionsAndLabelsAreShownAsTheyAre) {
  const auto widthOf = [&](const char* name, const char* text) {
    model->Button.Caption(text);
    model->Text.Text(text);
    QTest::qWait(5);
    return InkWidth(Find(name).grab(Find(name).rect().adjusted(5, 5, -5, -5)).toImage());
  };
  for (const char* name : {"button", "label"}) {
    EXPECT_GT(widthOf(name, "<b>bold</b>"), widthOf(name, "bold") * 3 / 2) << name;
    EXPECT_GT(widthOf(name, "a&b"), widthOf(name, "ab") + 3) << name;
  }
}

}  // namespace
