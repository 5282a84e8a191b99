#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/Listbox.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/TextField.h"

using namespace testing;
using namespace toolkit;

namespace {

struct FormWindow final : Window {
  explicit FormWindow(WindowOrigin origin = WindowOrigin::Asked)
      : Window("Form", {400, 300}, {64, 64}, {4000, 4000}, WindowFrame::Fixed) {
    Origin(origin);
    Add(Install, "install", {10, 260, 100, 24}, {}, 0).Caption("Install").Role(ButtonRole::Default);
    Add(Stop, "stop", {120, 260, 100, 24}, {}, 1).Caption("&Stop && go").Role(ButtonRole::Cancel);
    Add(Other, "other", {230, 260, 100, 24}, {}, 2).Caption("Other");
    Add(Field, "field", {10, 10, 100, 24}, {}, 3);
    Add(List, "list", {10, 40, 200, 100}, {}, 4).AddRow({"a row"});
  }

  PushButton Install, Stop, Other;
  TextField Field;
  Listbox List;
};

struct Form : Desktop {
  Form() {
    for (PushButton* button : {&model->Install, &model->Stop, &model->Other})
      button->Action = [this, button] { log.push_back(button->Name()); };
    model->List.DoubleClick = [this] { log.emplace_back("open"); };
  }
  std::shared_ptr<FormWindow> model = std::make_shared<FormWindow>();
  QWidget& window = Desktop::Open(model);
  std::vector<std::string> log;
};

TEST_F(Form, ReturnAndEscapePressTheirButtons) {
  for (const auto& [focus, pressed] : {std::pair("field", "install, stop"), {"list", "open, stop"}}) {
    log.clear();
    Find(focus).setFocus();
    model->List.ListIndex(0);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) Press(key);
    for (PushButton* button : {&model->Install, &model->Stop}) button->Enabled(false);
    Find("field").setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) Press(key);
    for (PushButton* button : {&model->Install, &model->Stop}) button->Enabled(true);
    EXPECT_EQ(log.front() + ", " + log.back(), pressed);
    EXPECT_EQ(log.size(), 2U) << "a button that was off";
  }
}

TEST_F(Form, AWindowNobodyAskedForLeavesTheKeyboard) {
  for (const auto origin : {WindowOrigin::Asked, WindowOrigin::Unasked}) {
    for (const char* focus : {"field", "list"}) {
      window.activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
      Find(focus).setFocus();
      const auto late = std::make_shared<FormWindow>(origin);
      late->Show();
      QTest::qWait(100);
      const bool staysBehind = origin == WindowOrigin::Unasked && focus == std::string("field");
      EXPECT_EQ(QApplication::activeWindow() == &window, staysBehind) << focus;
      late->Close();
    }
  }
}

TEST_F(Form, ABoxBelongsToItsWindowAndSaysTheSubject) {
  const auto seen = [](QObject* object) { return QAccessible::queryAccessibleInterface(object); };
  const BoxReader reader([&](QDialog& box) {
    EXPECT_EQ(seen(&box)->text(QAccessible::Description), "a <b>server</b>␊\nSure?\nReally.");
    EXPECT_EQ(box.windowTitle(), "a <b>server</b>␊");
    EXPECT_EQ(box.parentWidget(), &window);
    QTest::keyClick(box.windowHandle(), Qt::Key_L, Qt::AltModifier);
  });
  MessageDialog question;
  question.Message = "Sure?";
  question.Explanation = "Really.";
  question.AlternateActionButton = {.Caption = "A&lternate && more", .Visible = true};
  model->Subject("a <b>server</b>\n");
  const HandlerTurn turn(model);
  EXPECT_EQ(platform.ShowDialog(question), DialogButton::Alternate);
}

TEST_F(Form, AWindowMayRefuseToCloseButNotTheSession) {
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  model->Stop.Action = [this] { MsgBox("Really?"), log.emplace_back("asked"); };
  EXPECT_EQ(app.Run([] { QCoreApplication::quit(); }), 0);
  EXPECT_THAT(log, ElementsAre("stop", "asked"));
  EXPECT_TRUE(model->IsClosed());
}

// The views of a closed window stay for as long as a dialog stands.
TEST_F(Form, AWindowThatIsShownAgainFollowsItsControls) {
  const auto other = std::make_shared<OtherWindow>();  // keeps the program running
  other->Show();
  BoxReader reader([&](QDialog& box) {
    if (reader.Texts.size() == 1) model->Close(), model->Window::Show();
    box.accept();
  });
  model->Other.Action = [] { MsgBox("closing"); };
  Click(Find("other"));
  QTest::qWait(30);
  model->Field.Text("followed");
  EXPECT_EQ(Find<QLineEdit>("field").text(), "followed");
  model->Paint = [](Graphics&) { throw std::runtime_error("no picture"); };
  for (int paint = 0; paint < 3; ++paint) Find("other").window()->grab();
  EXPECT_TRUE(Until([&] { return reader.Texts.size() == 2; }));
  QTest::qWait(50);
  EXPECT_THAT(reader.Texts, ElementsAre("closing", "no picture"));
}

}  // namespace
