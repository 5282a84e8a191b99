#include <stdexcept>

#include <QApplication>
#include <QDialog>
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
using toolkit::MsgBox;

namespace {

class ButtonWindow final : public toolkit::Window {
 public:
  ButtonWindow() : Window("Button", {300, 100}, {300, 100}, {300, 100}) {
    Add(Button, "button", {10, 10, 280, 30}, {}, 0);
    Add(Text, "label", {10, 50, 280, 30}, {}, 1);
  }
  toolkit::PushButton Button;
  toolkit::Label Text;
};

class Program : public Desktop {
 protected:
  std::shared_ptr<ButtonWindow> model = std::make_shared<ButtonWindow>();
  QWidget& window = Open(model);
  std::shared_ptr<OtherWindow> other = std::make_shared<OtherWindow>();
  std::vector<std::string> log;
};

TEST_F(Program, ABoxShowsAnyTextAsItIsWithinTheScreenAndAnyWayOfClosingClosesIt) {
  const auto key = [](Qt::Key pressed) {
    return [pressed](QDialog& box) { QTest::keyClick(box.windowHandle(), pressed); };
  };
  const auto click = [](QDialog& box) { Click(*box.findChild<QPushButton*>()); };
  const struct {
    std::string text;
    bool scrolls;
    std::function<void(QDialog&)> close;
  } rows[] = {
      {"short", false, key(Qt::Key_Escape)},
      {"", false, key(Qt::Key_Return)},
      {"<b>no</b> &amp; <img src=x>\nsecond\tline", false, key(Qt::Key_Enter)},
      {std::string(300, 'w') + " wrapped", false, key(Qt::Key_Space)},
      {std::string(100'000, 'x'), true, [](QDialog& box) { box.close(); }},
      {QString("line\n").repeated(20'000).toStdString(), true, click},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text.substr(0, 20));
    BoxReader reader([&](QDialog& box) {
      EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry())) << box.frameGeometry().height();
      EXPECT_TRUE(box.rect().contains(box.findChild<QPushButton*>()->geometry()));
      EXPECT_EQ(box.findChild<QPlainTextEdit*>()->verticalScrollBar()->maximum() > 0, row.scrolls);
      row.close(box);
    });
    MsgBox(row.text);
    ASSERT_EQ(reader.Texts.size(), 1U);
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
  model->Button.Action = [&] {
    QTimer::singleShot(0, [] { MsgBox("meanwhile"); });
    MsgBox("closing");
    log.push_back(model->Title());
    model.reset();
  };
  const std::weak_ptr<ButtonWindow> closed = model;
  Click(Find("button"));
  EXPECT_TRUE(Until([&] { return closed.expired(); }));
  EXPECT_THAT(log, ElementsAre("Button"));
  EXPECT_THAT(platform.OpenWindows(), ElementsAre(other));
}

TEST_F(Program, TheLoopEndsWithTheLastWindowAndNotBefore) {
  const int status = app.Run([&] {
    other->Show();
    window.close();
    QTimer::singleShot(50, [&] { log.emplace_back("still running"), other->Close(); });
  });
  EXPECT_EQ(status, 0);
  EXPECT_THAT(log, ElementsAre("still running"));
}

TEST_F(Program, QuittingEndsEveryBoxThatStandsOrWaits) {
  BoxReader reader([](QDialog&) { toolkit::Quit(3); });
  const int status = app.Run([&] {
    QTimer::singleShot(0, [&] { MsgBox("waits"), log.emplace_back("waited"); });
    MsgBox("stands"), log.emplace_back("stood");
  });
  EXPECT_EQ(status, 3);
  EXPECT_THAT(log, ElementsAre("waited", "stood"));
  EXPECT_THAT(reader.Texts, ElementsAre("stands"));
}

TEST_F(Program, CaptionsAndLabelsAreShownAsTheyAre) {
  for (const char* name : {"button", "label"}) {
    const auto widthOf = [&](const char* text) {
      model->Button.Caption(text);
      model->Text.Text(text);
      return InkWidth(Find(name).grab(Find(name).rect().adjusted(5, 5, -5, -5)).toImage());
    };
    EXPECT_GT(widthOf("<b>bold</b>"), widthOf("bold") * 3 / 2) << name;
    EXPECT_GT(widthOf("a&b"), widthOf("ab") + 3) << name;
  }
}

}  // namespace
