#include <algorithm>

#include <QAbstractItemView>
#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QProgressBar>
#include <QScreen>
#include <gmock/gmock.h>

#include "tests/desktop/Desktop.h"
#include "toolkit/Label.h"
#include "toolkit/Listbox.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/PopupMenu.h"
#include "toolkit/ProgressBar.h"
#include "toolkit/TextField.h"

using namespace testing;
using namespace toolkit;

namespace {

std::string Encoded(const QImage& image) {
  QBuffer buffer;
  image.save(&buffer, "PNG");
  return buffer.data().toStdString();
}

std::string PictureOf(Qt::GlobalColor color) {
  QImage image(8, 8, QImage::Format_RGB32);
  image.fill(color);
  return Encoded(image);
}

struct FormWindow final : toolkit::Window {
  FormWindow() : Window("Form", {400, 300}, {64, 64}, {4000, 4000}, WindowFrame::Fixed) {
    Add(Install, "install", {10, 260, 100, 24}, {}, 0).Caption("Install").Role(ButtonRole::Default);
    Add(Stop, "stop", {120, 260, 100, 24}, {}, 1).Caption("&Stop && go").Role(ButtonRole::Cancel);
    Add(Other, "other", {230, 260, 100, 24}, {}, 2).Caption("Other");
    Add(Field, "field", {10, 10, 100, 24}, {}, 3);
    Add(List, "list", {10, 40, 200, 100}, {}, 4);
    Add(Menu, "menu", {10, 150, 101, 20}, {}, 5);
    Add(Bar, "bar", {10, 180, 117, 20}, {}, 6);
    Add(Text, "text", {220, 40, 150, 60}, {}, 7);
    Paint = [this](Graphics& graphics) {
      ++Paints;
      if (Background) graphics.DrawPicture(Background, {0, 0, graphics.Width(), graphics.Height()});
      graphics.DrawRect({300, 200, 50, 40});
    };
  }
  void Show(std::shared_ptr<const Picture> picture) {
    Background = std::move(picture);
    Invalidate();
  }
  PushButton Install, Stop, Other;
  TextField Field;
  Listbox List;
  PopupMenu Menu;
  ProgressBar Bar;
  Label Text;
  std::shared_ptr<const Picture> Background;
  int Paints = 0;
};

struct Form : Desktop {
  Form() {
    for (const auto& [button, name] :
         {std::pair(&model->Install, "install"), {&model->Stop, "stop"}, {&model->Other, "other"}})
      button->Action = [this, name = name] { log.emplace_back(name); };
    model->List.DoubleClick = [this] { log.emplace_back("open"); };
    model->Menu.Change = [this] { log.push_back("row " + std::to_string(model->Menu.ListIndex())); };
  }
  /// What the content of the window looks like, 0xRRGGBB.
  QRgb Pixel(int x, int y) { return window.grab().toImage().pixel(x, y) & 0xFFFFFFU; }
  QImage LabelPicture() { return window.grab({220, 40, 150, 60}).toImage(); }

  std::shared_ptr<FormWindow> model = std::make_shared<FormWindow>();
  QWidget& window = Desktop::Open(model);
  std::vector<std::string> log;
};

TEST_F(Form, ReturnAndEscapePressTheirButtonsWhereverTheKeyboardIs) {
  const auto key = [](Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [=] { Press(pressed, modifiers); };
  };
  const auto disabled = [this](PushButton& button) {
    return [&] { button.Enabled(false), Press(Qt::Key_Return), Press(Qt::Key_Escape), button.Enabled(true); };
  };
  const auto find = [&] {
    Press(Qt::Key_F, Qt::ControlModifier), Type("x"), Press(Qt::Key_Return), Press(Qt::Key_Escape);
  };
  const auto accessKey = [&] { Press(Qt::Key_S, Qt::AltModifier), QTest::qWait(150); };  // it shows the press first
  const std::tuple<const char*, const char*, std::function<void()>, std::vector<std::string>> rows[] = {
      {"field", "Return", key(Qt::Key_Return), {"install"}},
      {"field", "Enter", key(Qt::Key_Enter, Qt::KeypadModifier), {"install"}},
      {"field", "Shift+Return", key(Qt::Key_Return, Qt::ShiftModifier), {}},
      {"field", "Escape", key(Qt::Key_Escape), {"stop"}},
      {"field", "access key", accessKey, {"stop"}},
      {"field", "Alt+F4", key(Qt::Key_F4, Qt::AltModifier), {"stop"}},
      {"other", "Return", key(Qt::Key_Return), {"install"}},
      {"other", "Space", key(Qt::Key_Space), {"other"}},
      {"other", "Escape", key(Qt::Key_Escape), {"stop"}},
      {"stop", "Return", key(Qt::Key_Return), {"install"}},
      {"list", "Return", key(Qt::Key_Return), {"open"}},
      {"list", "Escape", key(Qt::Key_Escape), {"stop"}},
      {"list", "find and leave", find, {}},
      {"menu", "Return", key(Qt::Key_Return), {"install"}},
      {"field", "no default", disabled(model->Install), {"stop"}},
      {"field", "no cancel", disabled(model->Stop), {"install"}},
  };
  model->List.AddRow({"a row"});
  for (const auto& [focus, what, act, expected] : rows) {
    Find(focus).setFocus();
    model->List.ListIndex(0);
    log.clear();
    act();
    EXPECT_EQ(log, expected) << focus << ", " << what;
  }
}

TEST_F(Form, AnAccessKeyWorksInADialogToo) {
  BoxReader reader([](QDialog& box) { QTest::keyClick(box.windowHandle(), Qt::Key_L, Qt::AltModifier); });
  MessageDialog dialog;
  dialog.Message = "question";
  dialog.ActionButton = {.Caption = "&Action", .Visible = true};
  dialog.AlternateActionButton = {.Caption = "A&lternate && more", .Visible = true};
  EXPECT_EQ(platform.ShowDialog(dialog), DialogButton::Alternate);
}

TEST_F(Form, AMenuOffersItsRowsAsTheyAreAndTellsWhatTheUserChooses) {
  auto& view = Find<QComboBox>("menu");
  for (int row = 0; row < 50; ++row) model->Menu.AddRow(row == 1 ? "<b>1 & 2</b>\n3" : std::string(200'000, 'w'));
  model->Menu.ListIndex(0);
  ASSERT_TRUE(Until([&] { return view.count() == 50 && view.currentIndex() == 0; }));
  EXPECT_EQ(view.itemText(1).toStdString(), "<b>1 & 2</b>␊3");
  view.setFocus();
  Press(Qt::Key_Down);
  Press(Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(Until([&] { return view.view()->isVisible(); }));
  EXPECT_LT(view.view()->window()->width(), 450);
  for (const Qt::Key key : {Qt::Key_End, Qt::Key_Return}) QTest::keyClick(view.view(), key);
  model->Menu.Change = [this] { model->Menu.ListIndex(0); };
  model->Menu.RemoveRow(49);
  EXPECT_TRUE(Until([&] { return view.count() == 49 && view.currentIndex() == 0; }));
  EXPECT_THAT(log, ElementsAre("row 0", "row 1", "row 49"));
  const QImage cut = view.grab().toImage();
  EXPECT_EQ(view.size(), QSize(101, 20));
  model->Menu.Change = nullptr;
  model->Menu.ListIndex(-1);
  EXPECT_NE(cut, view.grab().toImage());
}

TEST_F(Form, ABarShowsHowFarItIsAndMovesWhereThereIsNoEnd) {
  auto& bar = Find<QProgressBar>("bar");
  const QImage start = bar.grab().toImage();
  EXPECT_TRUE(Until([&] { return bar.grab().toImage() != start; })) << "it does not move";
  model->Bar.Maximum(100).Value(250);
  const QImage full = bar.grab().toImage();
  model->Bar.Value(40);
  EXPECT_NE(bar.grab().toImage(), full);
  EXPECT_EQ(bar.value(), 40);
  EXPECT_EQ(bar.size(), QSize(117, 20));
  model->Bar.Maximum(-1);
  EXPECT_EQ(bar.maximum(), 0);
}

TEST_F(Form, ALabelKeepsItsTextWithinItsPlace) {
  const std::string words = QString("some words & more ").repeated(500).toStdString();
  const std::tuple<const char*, std::string, LabelFont, LabelLines, int> rows[] = {
      {"one line", words, LabelFont::BoldSystem, LabelLines::One, 1},
      {"one line of breaks", "a\nb\nc", LabelFont::System, LabelLines::One, 1},
      {"one huge word", std::string(300'000, 'w'), LabelFont::System, LabelLines::Several, 3},
      {"words", words, LabelFont::System, LabelLines::Several, 3},
      {"paragraphs", "a\r\n<b>b</b>\nc\nd\ne\nf\ng", LabelFont::BoldSmallSystem, LabelLines::Several, 3},
      {"short", "a b", LabelFont::System, LabelLines::Several, 1},
      {"nothing", "", LabelFont::System, LabelLines::Several, 0}};
  for (const auto& [what, text, font, lines, expected] : rows) {
    model->Text.Text(text).Font(font).Lines(lines);
    const QImage image = LabelPicture();
    const auto rowHasInk = [&](int y) {
      return InkWidth(image.copy(0, y, image.width() - 1, 1)) > 0 || image.pixel(0, y) != image.pixel(149, 59);
    };
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) inked += rowHasInk(y) ? 1 : 0;
    const int lineHeight = window.fontMetrics().height();
    EXPECT_LE(inked, expected * lineHeight) << what;
    EXPECT_GE(inked, expected * lineHeight / 3) << what;
    EXPECT_FALSE(rowHasInk(59)) << what << " is cut through";
  }
}

/// The contrast of two colours (WCAG 2), 1 to 21.
double Contrast(QRgb one, QRgb other) {
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
  };
  const double a = luminance(one) + 0.05;
  const double b = luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

TEST_F(Form, ALabelCanBeReadOverAnyPictureAndHidesNoneOfThePlainGround) {
  for (const bool isDark : {false, true}) {
    QPalette palette(isDark ? QColor(30, 30, 30) : QColor(239, 239, 239));
    QApplication::setPalette(palette);
    for (const auto color : {Qt::black, Qt::white, Qt::red, Qt::gray, Qt::yellow}) {
      model->Show(Picture::FromData(PictureOf(color)));
      model->Text.Text(QString(40, QChar(0x2588)).toStdString()).Ground(LabelGround::Picture);  // text as a block
      const QRgb text = LabelPicture().pixel(75, 30);
      model->Text.Text(QString(40, QChar(0x2003)).toStdString());  // the plate alone
      EXPECT_GT(Contrast(text, LabelPicture().pixel(75, 30)), 4.5) << color << isDark;
      EXPECT_EQ(QColor(LabelPicture().pixel(75, 2)), QColor(color)) << "the plate is larger than the text";
    }
    model->Show(nullptr);
    const QColor plain = LabelPicture().pixelColor(149, 59);
    EXPECT_NEAR(LabelPicture().pixelColor(75, 30).lightness(), plain.lightness(), 2);
  }
  QApplication::setPalette({});
}

TEST_F(Form, ABackgroundIsDecodedOnceAndFadesByItsTransparency) {
  std::string bytes = PictureOf(Qt::red);
  const auto picture = std::make_shared<const Picture>(std::as_bytes(std::span(bytes)));
  const auto faded = Picture::Faded(picture, 50);
  model->Show(picture);
  EXPECT_EQ(Pixel(399, 299), 0xFF0000U);
  EXPECT_EQ(Pixel(300, 239), 0U) << "the rectangle lies inside of its place";
  EXPECT_EQ(Pixel(349, 200), 0U);
  EXPECT_EQ(Pixel(301, 238), 0xFF0000U);
  EXPECT_EQ(Pixel(350, 220), 0xFF0000U);
  model->Show(faded);
  const QColor half(Pixel(399, 299));
  const QColor plain = window.palette().color(QPalette::Window);
  EXPECT_NEAR(half.red(), (255 + plain.red()) / 2, 1);
  EXPECT_NEAR(half.blue(), plain.blue() / 2, 1);
  std::fill(bytes.begin(), bytes.end(), '\0');
  EXPECT_EQ(QColor(Pixel(399, 299)), half) << "it was decoded again";
  const int before = model->Paints;
  QApplication::setPalette(QPalette(QColor(30, 30, 30)));
  EXPECT_TRUE(Until([&] { return model->Paints > before; })) << "the palette's change was not painted";
  QApplication::setPalette({});
}

TEST_F(Form, AFixedWindowStandsInTheMiddleAndCannotBeResized) {
  EXPECT_EQ(window.minimumSize(), QSize(400, 300));
  EXPECT_EQ(window.maximumSize(), QSize(400, 300));
  EXPECT_FALSE(window.windowFlags() & (Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint));
  const QPoint off = window.screen()->availableGeometry().center() - window.geometry().center();
  EXPECT_LE(off.manhattanLength(), 10);
}

TEST_F(Form, AWindowThatAppearsLeavesTheKeyboardInAFieldButNotElsewhere) {
  for (const char* focus : {"field", "list"}) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Find(focus).setFocus();
    const auto late = std::make_shared<OtherWindow>();
    late->Show();
    QTest::qWait(100);
    EXPECT_EQ(QApplication::activeWindow() == &window, focus == std::string("field")) << focus;
    EXPECT_EQ(platform.OpenWindows().back() == model, focus == std::string("field")) << focus;
    late->Close();
  }
}

TEST_F(Form, AWindowThatRefusesToCloseStaysButNotBeyondTheSession) {
  const auto other = std::make_shared<OtherWindow>();
  other->Show();
  EXPECT_FALSE(window.close());
  EXPECT_THAT(log, ElementsAre("stop"));
  EXPECT_TRUE(window.isVisible());
  model->Stop.Action = [this] { MsgBox("Really?"), log.emplace_back("asked"); };
  EXPECT_EQ(app.Run([] { QCoreApplication::quit(); }), 0);
  EXPECT_THAT(log, ElementsAre("stop", "asked"));
  EXPECT_TRUE(model->IsClosed() && other->IsClosed());
}

TEST_F(Form, AFaultInPaintingIsToldOnce) {
  BoxReader reader;
  model->Paint = [](Graphics&) { throw std::runtime_error("no picture"); };
  for (int paint = 0; paint < 3; ++paint) window.grab();
  EXPECT_TRUE(Until([&] { return !reader.Texts.empty(); }));
  QTest::qWait(50);
  EXPECT_THAT(reader.Texts, ElementsAre("no picture"));
}

// The views of a closed window stay for as long as a dialog stands.
TEST_F(Form, AWindowThatIsShownAgainFollowsItsControls) {
  model->Other.Action = [this] {
    BoxReader reader([this](QDialog& box) { model->Close(), model->toolkit::Window::Show(), box.accept(); });
    MsgBox("closing");
  };
  Click(Find("other"));
  QTest::qWait(30);
  model->Field.Text("followed");
  EXPECT_EQ(Find<QLineEdit>("field").text(), "followed");
}

}  // namespace
