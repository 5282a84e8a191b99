#include <algorithm>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>
#include <gmock/gmock.h>

#include "serverlist/CorvaneClient.h"
#include "serverlist/wMain.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"

using namespace testing;
using namespace test_servers;

namespace {

constexpr const char* information =
    R"({"networkHostname":"<i>web</i>","networkIPv4":"10.0.0.5","systemName":"Web & co"})";

struct MainWindow : Desktop {
  /// The window with a row and a typed name, as the desktop's settings make it look.
  QImage Picture(const QPalette& palette) {
    QApplication::setPalette(palette);
    main->listServers.AddRow({"Name", "Address", "Host"});
    TypeInto("txtHostname", "typed");
    QTest::qWait(50);
    return Content().grab().toImage();
  }
  /// What lies below the menus.
  static QWidget& Content() { return Find("content"); }
  static QRect PlaceOf(const QString& control) {
    return {Find(control).mapTo(&Content(), QPoint()), Find(control).size()};
  }

  std::vector<std::string> opened;
  std::shared_ptr<wMain> main =
      std::make_shared<wMain>([this](const auto& server) { opened.push_back(server->System_Name); });
  QWidget& window = Open(main);
};

struct Place {
  const char* name = nullptr;
  QRect designed;
  bool followsBottom = false;
};
const Place places[] = {{"Canvas1", {0, 0, 600, 164}, false},       {"listServers", {0, 162, 600, 200}, false},
                        {"txtHostname", {20, 374, 560, 22}, true},  {"txtUsername", {20, 408, 200, 22}, true},
                        {"txtPassword", {232, 408, 200, 22}, true}, {"btnAddServer", {444, 408, 136, 20}, true},
                        {"labelVersion", {20, 442, 560, 20}, true}, {"labelCopyright", {20, 474, 560, 20}, true}};

TEST_F(MainWindow, ControlsKeepTheirPlacesWhileTheWindowGrowsAndShrinks) {
  EXPECT_EQ(window.windowTitle(), "Corvane");
  const std::pair<QSize, int> sizes[] = {{{600, 700}, 700}, {{900, 515}, 515}, {{600, 10}, 64}, {{300, 2000}, 2000}};
  for (const auto& [wanted, height] : sizes) {
    window.resize(wanted + QSize(0, Find<QMenuBar>("").height()));
    EXPECT_EQ(Content().size(), QSize(600, height));
    for (const Place& place : places) {
      const QRect expected = place.designed.translated(0, place.followsBottom ? height - 514 : 0);
      EXPECT_TRUE(PlaceOf(place.name) == expected) << place.name << " at height " << height;
      EXPECT_FALSE(Find(place.name).accessibleName().isEmpty()) << place.name;
    }
  }
}

TEST_F(MainWindow, TheKeyboardGoesThroughTheControlsInOrder) {
  std::vector<std::string> order;
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
    for (int step = 0; step < 5; ++step) {
      order.push_back(Focused());
      Press(key, key == Qt::Key_Tab ? Qt::NoModifier : Qt::ShiftModifier);
    }
  }
  EXPECT_THAT(order, ElementsAre("txtHostname", "txtUsername", "txtPassword", "btnAddServer", "listServers",  //
                                 "txtHostname", "listServers", "btnAddServer", "txtPassword", "txtUsername"));
}

TEST_F(MainWindow, NothingGetsThePasswordOutOfItsField) {
  QApplication::clipboard()->setText("untouched");
  TypeInto("txtPassword", "s3cret");
  auto& field = Find<QLineEdit>("txtPassword");
  EXPECT_EQ(main->txtPassword.Text(), "s3cret");
  EXPECT_FALSE(field.displayText().contains("s3cret"));
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Value).contains("s3cret"));
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_C, Qt::Key_X}) Press(key, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "untouched");
}

TEST_F(MainWindow, TypingAndClickingAddsTheServerThatAnswers) {
  const FaultServer server({{{Reply(200, information)}}});
  // The window puts port 1701 behind the host, so the server's real port and a path stand before it.
  TypeInto("txtHostname", "127.0.0.1:" + std::to_string(server.Port()) + "/x");
  TypeInto("txtPassword", "s3cret");
  TypeInto("txtUsername", "admin");
  const QString unusual = QString(QStringLiteral("grüß 🦊 שלום ")).repeated(800);
  QApplication::clipboard()->setText(unusual);
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_V, Qt::ControlModifier);
  Click(Find("btnAddServer"));
  ASSERT_TRUE(Until([&] { return main->listServers.ListCount() == 1; }));
  EXPECT_EQ(main->listServers.RowText(0), "Web & co\t10.0.0.5\t<i>web</i>");
  ASSERT_THAT(server.Requests(), SizeIs(1));
  EXPECT_THAT(server.Requests()[0], EndsWith(R"({"password":"s3cret","username":")" + unusual.toStdString() + "\"}"));
  for (const char* field : {"txtHostname", "txtUsername", "txtPassword"}) EXPECT_EQ(Find<QLineEdit>(field).text(), "");

  auto& list = Find<QAbstractItemView>("listServers");
  ASSERT_TRUE(Until([&] { return list.model()->rowCount() == 1; }));
  ClickAt(*list.viewport(), list.visualRect(list.model()->index(0, 1)).center());
  Press(Qt::Key_Return);
  EXPECT_THAT(opened, ElementsAre("Web & co"));
}

TEST_F(MainWindow, EverythingCanBeReadOnADarkDesktop) {
  QPalette dark(QColor(30, 30, 30));
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  const QImage picture = Picture(dark);
  std::vector<std::pair<const char*, QRect>> areas{{"row", {10, 184, 100, 14}}, {"heading", {10, 166, 100, 14}}};
  for (const Place& place : places) {
    if (place.designed.top() > 162) areas.emplace_back(place.name, place.designed.adjusted(3, 3, -3, -3));
  }
  for (const auto& [name, area] : areas) {
    const QImage part = picture.copy(area);
    const auto isBright = [](QRgb pixel) { return qGray(pixel) > 110; };
    EXPECT_GT(std::ranges::count_if(PixelsOf(part), isBright), 10) << name << " has no bright text";
    EXPECT_FALSE(isBright(part.pixel(part.width() - 1, part.height() / 2))) << name << " has a bright background";
  }
}

struct DoubleScale {
  DoubleScale() { qputenv("QT_SCALE_FACTOR", "2"); }
  ~DoubleScale() { qunsetenv("QT_SCALE_FACTOR"); }
};
class AtDoubleScale : private DoubleScale, public MainWindow {};

TEST_F(AtDoubleScale, EverythingIsTwiceAsFineAndStandsWhereItDid) {
  const QImage picture = Picture(QApplication::palette());
  EXPECT_EQ(picture.size(), QSize(1200, 1028));
  for (const Place& place : places) {
    EXPECT_TRUE(PlaceOf(place.name) == place.designed) << place.name;
    const QRect area(place.designed.topLeft() * 2, place.designed.size() * 2);
    EXPECT_GT(InkWidth(picture.copy(area.adjusted(8, 8, -8, -8))), 30) << place.name << " is empty";
  }
}

}  // namespace
