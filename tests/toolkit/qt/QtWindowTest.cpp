#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QScreen>
#include <QToolTip>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/Label.h"
#include "toolkit/Listbox.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/PopupMenu.h"
#include "toolkit/ProgressBar.h"
#include "toolkit/ProgressWheel.h"
#include "toolkit/TextField.h"

using namespace testing;
using namespace toolkit;

namespace {

struct FormWindow final : Window {
  FormWindow() : Window("Form", {400, 300}, {64, 64}, {4000, 4000}, WindowFrame::Fixed) {
    Add(Install, "install", {10, 260, 100, 24}, {}, 0).Caption("Install").Role(ButtonRole::Default);
    Add(Stop, "stop", {120, 260, 100, 24}, {}, 1).Caption("&Stop && go").Role(ButtonRole::Cancel);
    Add(Other, "other", {230, 260, 100, 24}, {}, 2).Caption("Other");
    Add(Field, "field", {10, 10, 100, 24}, {}, 3);
    Add(List, "list", {10, 40, 200, 100}, {}, 4).AddRow({"a row"});
    Add(Menu, "menu", {10, 150, 101, 20}, {}, 5);
    Add(Bar, "bar", {10, 180, 117, 20}, {}, 6);
    Add(Wheel, "wheel", {340, 10, 16, 16}, {}, 6);
    Add(Text, "text", {220, 40, 150, 60}, {}, 7);
    Paint = [this](Graphics& graphics) {
      ++Paints;
      graphics.DrawPicture(Background, {0, 0, graphics.Width(), graphics.Height()});
    };
  }
  void Show(std::shared_ptr<const Picture> picture) { Background = std::move(picture), Invalidate(); }

  PushButton Install, Stop, Other;
  TextField Field;
  Listbox List;
  PopupMenu Menu;
  ProgressBar Bar;
  ProgressWheel Wheel;
  Label Text;
  std::shared_ptr<const Picture> Background;
  int Paints = 0;
};

struct Form : Desktop {
  Form() {
    for (PushButton* button : {&model->Install, &model->Stop, &model->Other})
      button->Action = [this, button] { log.push_back(button->Name()); };
    model->List.DoubleClick = [this] { log.emplace_back("open"); };
    model->Menu.Change = [this] { log.push_back("row " + std::to_string(model->Menu.ListIndex())); };
  }
  // An animation of Qt's that still runs when its QApplication goes keeps all later ones in the process from running.
  ~Form() override {
    model->Bar.Visible(false);
    QTest::qWait(50);
    QApplication::setPalette({});
  }
  QColor Pixel(int x, int y) { return window.grab().toImage().pixelColor(x, y); }
  QImage LabelPicture() { return window.grab({220, 40, 150, 60}).toImage(); }

  std::shared_ptr<FormWindow> model = std::make_shared<FormWindow>();
  QWidget& window = Desktop::Open(model);
  std::vector<std::string> log;
};

TEST_F(Form, ReturnAndEscapePressTheirButtons) {
  const auto key = [](Qt::Key which, Qt::KeyboardModifiers with = {}) { return [=] { Press(which, with); }; };
  const auto without = [](PushButton& button) {
    return [&] { button.Enabled(false), Press(Qt::Key_Return), Press(Qt::Key_Escape), button.Enabled(true); };
  };
  const auto find = [] { Press(Qt::Key_F, Qt::ControlModifier), Press(Qt::Key_Return), Press(Qt::Key_Escape); };
  const auto accessKey = [] { Press(Qt::Key_S, Qt::AltModifier), QTest::qWait(150); };  // it shows the press first
  const std::tuple<const char*, const char*, std::function<void()>, std::vector<std::string>> rows[] = {
      {"field", "Return", key(Qt::Key_Return), {"install"}},
      {"field", "Enter", key(Qt::Key_Enter, Qt::KeypadModifier), {"install"}},
      {"field", "access key", accessKey, {"stop"}},
      {"field", "Alt+F4", key(Qt::Key_F4, Qt::AltModifier), {"stop"}},
      {"field", "no default", without(model->Install), {"stop"}},
      {"field", "no cancel", without(model->Stop), {"install"}},
      {"other", "Return", key(Qt::Key_Return), {"install"}},
      {"other", "Space", key(Qt::Key_Space), {"other"}},
      {"list", "Return", key(Qt::Key_Return), {"open"}},
      {"list", "Escape", key(Qt::Key_Escape), {"stop"}},
      {"list", "find and leave", find, {}},
  };
  for (const auto& [focus, what, act, expected] : rows) {
    Find(focus).setFocus();
    model->List.ListIndex(0);
    log.clear();
    act();
    EXPECT_EQ(log, expected) << focus << ", " << what;
  }
  const BoxReader reader([](QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_L, Qt::AltModifier); });
  MessageDialog dialog;
  dialog.AlternateActionButton = {.Caption = "A&lternate && more", .Visible = true};
  EXPECT_EQ(platform.ShowDialog(dialog), DialogButton::Alternate);
}

TEST_F(Form, AMenuOffersItsRowsAsTheyAre) {
  auto& view = Find<QComboBox>("menu");
  for (int row = 0; row < 50; ++row) {
    model->Menu.AddRows({{.Text = row == 1 ? "<b>1 & 2</b>\n3" : std::string(200'000, 'w'), .Tag = {}}});
  }
  ASSERT_TRUE(Until([&] { return view.count() == 50; }));
  EXPECT_EQ(view.itemText(1).toStdString(), "<b>1 & 2</b>␊3");
  view.setFocus();
  Press(Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(Until([&] { return view.view()->isVisible(); }));
  EXPECT_LT(view.view()->window()->width(), 450);
  for (const Qt::Key key : {Qt::Key_End, Qt::Key_Return}) QTest::keyClick(view.view(), key);
  EXPECT_THAT(log, ElementsAre("row 49"));
  model->Menu.Change = [this] { model->Menu.ListIndex(0); };
  model->Menu.RemoveRow(49);
  EXPECT_TRUE(Until([&] { return view.count() == 49 && view.currentIndex() == 0; }));
}

TEST_F(Form, ABarMovesWhereThereIsNoEnd) {
  auto& bar = Find<QProgressBar>("bar");
  const QImage start = bar.grab().toImage();
  EXPECT_TRUE(Until([&] { return bar.grab().toImage() != start; }));
  model->Bar.Maximum(100).Value(250);
  const QImage full = bar.grab().toImage();
  model->Bar.Value(40);
  EXPECT_NE(bar.grab().toImage(), full);
}

TEST_F(Form, ALabelShowsWholeLinesOnly) {
  const std::string words = QString("some words & more ").repeated(500).toStdString();
  const std::tuple<const char*, std::string, LabelLines, int, const char*> rows[] = {
      {"nothing", "", LabelLines::Several, 0, ""},
      {"one line of breaks", "a\nb\nc", LabelLines::One, 1, ""},
      {"one line", words, LabelLines::One, 1, "<p>some"},
      {"one huge word", std::string(300'000, 'w'), LabelLines::Several, 3, "<p>wwww"},
      {"paragraphs", "a\r\n<b>b\nc\nd\ne\nf", LabelLines::Several, 3, "<p>a<br"}};
  for (const auto& [what, text, lines, expected, toolTip] : rows) {
    model->Text.Text(text).Lines(lines);
    const QImage image = LabelPicture();
    int inked = 0;
    for (int y = 0; y < 60; ++y) inked += InkWidth(image.copy(0, y, 150, 1)) > 0 ? 1 : 0;
    const int height = window.fontMetrics().height();
    EXPECT_TRUE(inked <= expected * height && inked >= expected * height / 3) << what << ": " << inked;
    EXPECT_EQ(InkWidth(image.copy(0, 59, 150, 1)), 0) << what << " is cut through";
    QHelpEvent help(QEvent::ToolTip, {9, 9}, window.mapToGlobal(QPoint(230, 50)));
    QApplication::sendEvent(&Find("text"), &help);
    EXPECT_EQ(QToolTip::text().left(7), toolTip) << what;
  }
}

TEST_F(Form, ALabelCanBeReadOverAnyPicture) {
  for (const QColor ground : {QColor(30, 30, 30), QColor(239, 239, 239)}) {
    QApplication::setPalette(QPalette(ground));
    for (const auto color : {Qt::black, Qt::white, Qt::red, Qt::gray, Qt::yellow}) {
      model->Show(Picture::FromData(PictureOf(color, {8, 8})));
      model->Text.Text(QString(40, QChar(0x2588)).toStdString()).Ground(LabelGround::Picture);  // text as a block
      const QColor text = LabelPicture().pixelColor(75, 30);
      model->Text.Text(QString(40, QChar(0x2003)).toStdString());  // the plate alone
      EXPECT_GT(std::abs(qGray(text.rgb()) - qGray(LabelPicture().pixel(75, 30))), 125) << color;
      EXPECT_EQ(LabelPicture().pixelColor(75, 2), QColor(color)) << "the plate is larger than the text";
    }
    model->Show(nullptr);
    EXPECT_NEAR(LabelPicture().pixelColor(75, 30).lightness(), Pixel(399, 299).lightness(), 2);
  }
}

TEST_F(Form, ABackgroundFadesAndFollowsThePalette) {
  const QColor plain = Pixel(399, 299);
  model->Show(Picture::Faded(Picture::FromData(PictureOf(Qt::red, {8, 8})), 50));
  EXPECT_NEAR(Pixel(399, 299).red(), (255 + plain.red()) / 2.0, 1);
  EXPECT_NEAR(Pixel(399, 299).blue(), plain.blue() / 2.0, 1);
  const int before = model->Paints;
  QApplication::setPalette(QPalette(QColor(30, 30, 30)));
  EXPECT_TRUE(Until([&] { return model->Paints > before; }));
}

TEST_F(Form, AWindowNobodyAskedForLeavesTheKeyboard) {
  struct Late final : Window {
    explicit Late(WindowOrigin origin) : Window("Late", {100, 100}, {}, {100, 100}) { Origin(origin); }
  };
  for (const auto origin : {WindowOrigin::Asked, WindowOrigin::Unasked}) {
    for (const char* focus : {"field", "list"}) {
      window.activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
      Find(focus).setFocus();
      const auto late = std::make_shared<Late>(origin);
      late->Show();
      QTest::qWait(100);
      const bool staysBehind = origin == WindowOrigin::Unasked && focus == std::string("field");
      EXPECT_EQ(QApplication::activeWindow() == &window, staysBehind) << focus;
      late->Close();
    }
  }
}

TEST_F(Form, AssistiveProgramsAreToldWhatGoesOn) {
  const auto seen = [](QObject* object) { return QAccessible::queryAccessibleInterface(object); };
  const BoxReader reader([&](QDialog& box) {
    EXPECT_EQ(seen(&box)->role(), QAccessible::AlertMessage);
    EXPECT_EQ(seen(&box)->text(QAccessible::Name), "Corvane");
    EXPECT_EQ(seen(&box)->text(QAccessible::Description), "a <b>server</b>␊\nSure?\nReally.");
    EXPECT_EQ(seen(box.findChild<QWidget*>("caution"))->text(QAccessible::Name), "Caution");
    EXPECT_EQ(box.windowTitle(), "a <b>server</b>␊");
    EXPECT_EQ(box.parentWidget(), &window) << "it belongs to the active window";
    box.reject();
  });
  MessageDialog question;
  question.Icon = DialogIcon::Caution;
  question.Message = "Sure?";
  question.Explanation = "Really.";
  model->Subject("a <b>server</b>\n");
  EXPECT_EQ(seen(&window)->text(QAccessible::Description), "a <b>server</b>␊");
  {
    const HandlerTurn turn(model);
    platform.ShowDialog(question);
  }
  EXPECT_EQ(reader.Texts.size(), 1U);
  for (const auto& [name, maximum, value, isBusy] :
       {std::tuple("bar", 0, 0, true), {"bar", 100, 40, true}, {"bar", 100, 100, false}, {"wheel", 0, 0, true}}) {
    model->Bar.Maximum(maximum).Value(value);
    auto* bar = seen(&Find(name));
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar) << name;
    EXPECT_EQ(bar->state().busy, isBusy) << name << value;
    EXPECT_EQ(bar->valueInterface()->currentValue(), value) << name;
  }
  model->Wheel.Visible(false);
  EXPECT_FALSE(seen(&Find("wheel"))->state().busy);
}

TEST_F(Form, AWindowMayRefuseToCloseButNotTheSession) {
  EXPECT_EQ(window.minimumSize(), window.maximumSize());
  const QPoint off = window.screen()->availableGeometry().center() - window.geometry().center();
  EXPECT_LE(off.manhattanLength(), 10);
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
