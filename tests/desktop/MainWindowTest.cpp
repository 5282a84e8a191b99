#include <algorithm>

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
  std::shared_ptr<wMain> main = std::make_shared<wMain>([](const auto& /*server*/) {});
  QWidget& window = Open(main);
};

}  // namespace

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

TEST_F(MainWindow, TypingAndClickingAddsTheServer) {
  const FaultServer server({{{Reply(200, information)}}});
  // The program appends ":1701" to the host, which a path before it makes harmless.
  TypeInto("txtHostname", "127.0.0.1:" + std::to_string(server.Port()) + "/x");
  TypeInto("txtPassword", "s3cret");
  TypeInto("txtUsername", "admin");
  const QString unusual = QString(QStringLiteral("grüß 🦊 שלום ")).repeated(800);
  QApplication::clipboard()->setText("\n" + unusual + "\r\n");
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_V, Qt::ControlModifier);
  Click(Find("btnAddServer"));
  ASSERT_TRUE(Until([&] { return main->listServers.ListCount() == 1; }));
  EXPECT_EQ(main->listServers.RowText(0), "Web & co\t10.0.0.5\t<i>web</i>");
  ASSERT_THAT(server.Requests(), SizeIs(1));
  EXPECT_THAT(server.Requests()[0], EndsWith(R"({"password":"s3cret","username":")" + unusual.toStdString() + "\"}"));
  for (const char* field : {"txtHostname", "txtUsername", "txtPassword"}) EXPECT_EQ(Find<QLineEdit>(field).text(), "");
}

TEST_F(MainWindow, EverythingCanBeReadOnADarkDesktop) {
  QPalette dark(QColor(30, 30, 30));
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  QApplication::setPalette(dark);
  main->listServers.AddRow({"Name", "Address", "Host"});
  TypeInto("txtHostname", "typed");
  ASSERT_TRUE(Until([] { return Find<QAbstractItemView>("listServers").model()->rowCount() == 1; }));
  QWidget& content = Find("content");
  std::vector<std::pair<QString, QRect>> areas{{"row", {10, 184, 100, 14}}, {"heading", {10, 166, 100, 14}}};
  for (const char* name : {"txtHostname", "txtUsername", "btnAddServer", "labelVersion", "labelCopyright"}) {
    areas.emplace_back(name, QRect(Find(name).mapTo(&content, QPoint(3, 3)), Find(name).size() - QSize(6, 6)));
  }
  for (const auto& [name, area] : areas) {
    const QImage part = content.grab(area).toImage();
    const auto isBright = [](QRgb pixel) { return qGray(pixel) > 110; };
    EXPECT_GT(std::ranges::count_if(PixelsOf(part), isBright), 10) << name.toStdString() << " has no bright text";
    EXPECT_FALSE(isBright(part.pixel(part.width() - 1, part.height() / 2))) << name.toStdString() << " is not dark";
  }
}
