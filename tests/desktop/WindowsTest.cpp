#include <map>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextBrowser>
#include <QWindow>
#include <gmock/gmock.h>

#include "servercontrol/wContainerLogs.h"
#include "servercontrol/wServer.h"
#include "serverlist/wMain.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "toolkit/MessageDialog.h"
#include "update/install/KajuUpdateWindow.h"

using namespace test_servers;
using namespace testing;

namespace {

const Answer everything{{test_servers::Reply(
    200, R"({"status":"<b>Done</b>","systemName":"edge","containers":{"0":["web","up","1 s"]}})")}};

using Road = std::function<void()>;

/// All windows of the program, and the user's hands in one of them.
struct Windows : Desktop {
  Windows() {
    main->listServers.AddRow({"one", "two", "three"});
    logs->list_logs.AddRow({"line"});
    Desktop::Open(main);
  }
  ~Windows() override { update->Close(); }
  /// Gives the keyboard to the part of that name, in a state in which everything can be done with it.
  QWidget& Enter(const std::shared_ptr<toolkit::Window>& window, const QString& name) {
    window->Show();
    QWidget& part = Find(name);
    part.window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(part.window()));
    QApplication::clipboard()->setText("before");
    part.setFocus();
    if (qobject_cast<QLineEdit*>(&part) != nullptr) {
      Press(Qt::Key_A, Qt::ControlModifier);
      Type("typed");
    }
    name.startsWith("list") ? Press(Qt::Key_Home) : Press(Qt::Key_A, Qt::ControlModifier);
    return part;
  }
  /// Where the controls of a window stand in it.
  static std::map<QString, QRect> PlacesOf(const toolkit::Window& window) {
    std::map<QString, QRect> places;
    for (const auto* part : window.Controls()) {
      const QWidget& view = Find(QString::fromStdString(part->Name()));
      if (view.isVisible()) places[view.objectName()] = {view.mapTo(view.window(), QPoint()), view.size()};
    }
    return places;
  }
  /// Goes back from the menus to where the keyboard was.
  static void Leave(const QWidget& part) {
    for (int times = 0; times < 5 && (QApplication::activePopupWidget() != nullptr || !part.hasFocus()); ++times) {
      Press(Qt::Key_Escape);
    }
    EXPECT_TRUE(part.hasFocus());
  }
  static QPoint PlaceOf(const char* menu) {
    const auto* bar = QApplication::activeWindow()->findChild<QMenuBar*>();
    return bar->actionGeometry(bar->findChild<QMenu*>(menu)->menuAction()).center();
  }
  static QWindow* Front() { return QApplication::activeWindow()->windowHandle(); }
  static QAction& Entry(const char* name) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    auto* entry = menu == nullptr ? nullptr : menu->findChild<QAction*>(name);
    return entry == nullptr ? throw std::runtime_error("the Edit menu is not open") : *entry;
  }
  /// Which of the entries of the open Edit menu can be chosen, from Undo to Select All, as in "001000".
  static std::string Choices() {
    std::string choices;
    for (const char* name : {"EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"}) {
      choices += Entry(name).isEnabled() ? '1' : '0';
    }
    return choices;
  }

  FaultServer server{{everything, everything, {everything.Pieces, Answer::Then::Keep, Answer::Start::WhenReleased}}};
  std::shared_ptr<CorvaneServer> record = std::make_shared<CorvaneServer>(
      CorvaneServer{"127.0.0.1:" + std::to_string(server.Port()) + "/x", "", "pw", "", "amy"});
  std::shared_ptr<wMain> main = std::make_shared<wMain>([](const auto&) {});
  std::shared_ptr<wServer> control = std::make_shared<wServer>(record);
  std::shared_ptr<wContainerLogs> logs = std::make_shared<wContainerLogs>();
  std::shared_ptr<KajuUpdateWindow> update = std::make_shared<KajuUpdateWindow>();

  const Road click = [] { QTest::mouseClick(Front(), Qt::LeftButton, {}, PlaceOf("EditMenu")); };
  const Road slide = [] {
    QTest::mousePress(Front(), Qt::LeftButton, {}, PlaceOf("FileMenu"));
    for (const char* menu : {"FileMenu", "EditMenu"}) QTest::mouseMove(Front(), PlaceOf(menu) + QPoint(1, 1));
  };
  const Road accessKey = [] { Press(Qt::Key_F, Qt::AltModifier), Press(Qt::Key_Right); };
  const Road arrows = [] {
    QTest::keyClick(Front(), Qt::Key_Alt);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down}) Press(key);
  };
  const std::vector<std::pair<const char*, Road>> roads{
      {"click", click}, {"slide", slide}, {"access key", accessKey}, {"arrows", arrows}};
};

}  // namespace

TEST_F(Windows, CopyAndTheEditMenuFollowTheFocus) {
  ASSERT_TRUE(Until([&] { return control->list_containers.ListCount() + control->list_overview.ListCount() == 20; }));
  update->Loading = true;
  update->hvNotes.LoadPage("<p>notes</p>", toolkit::FolderItem(""));
  control->list_containers.ListIndex(0);  // which enables the field for the number of log lines
  const std::string fact = control->list_overview.RowText(0);
  const std::tuple<std::shared_ptr<toolkit::Window>, const char*, int, std::string, std::string> places[] = {
      // the window, the part, its panel, the choices in the Edit menu ("" where there is none), what is copied
      {main, "listServers", 0, "001000", "one\ttwo\tthree"},
      {main, "txtHostname", 0, "111111", "typed"},
      {main, "txtPassword", 0, "100111", "before"},
      {main, "btnAddServer", 0, "000000", "before"},
      {control, "list_overview", 1, "001000", fact},
      {control, "list_containers", 2, "001000", "web\tup\t1 s"},
      {control, "txt_containers_logs", 2, "111111", "typed"},
      {logs, "list_logs", 0, "", "line"},
      {update, "hvNotes", 0, "001001", "notes"},
  };
  for (const auto& [window, name, panel, choices, copied] : places) {
    SCOPED_TRACE(name);
    if (panel != 0) control->tabs.Select(panel);
    QTest::qWait(20);
    Enter(window, name);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), copied);
    for (const auto& [road, open] : roads) {
      if (choices.empty()) break;
      SCOPED_TRACE(road);
      const QWidget& part = Enter(window, name);
      open();
      ASSERT_TRUE(Until([] { return QApplication::activePopupWidget() != nullptr; }));
      EXPECT_EQ(Choices(), choices);
      Press(Qt::Key_C);  // the access key of Copy
      Leave(part);
      EXPECT_EQ(QApplication::clipboard()->text().toStdString(), copied);
    }
  }
}

TEST_F(Windows, TheEditMenuEditsAField) {
  const std::pair<const char*, const char*> rows[] = {
      {"EditUndo", ""}, {"EditCut", ""}, {"EditPaste", "before"}, {"EditClear", ""}, {"EditSelectAll", "typed"}};
  for (const auto& [entry, text] : rows) {
    const QWidget& field = Enter(main, "txtHostname");
    slide();
    Entry(entry).trigger();
    EXPECT_EQ(main->txtHostname.Text(), text) << entry;
    Leave(field);
  }
}

TEST_F(Windows, TheFindBarAndTheListsMenuHaveKeys) {
  Enter(main, "listServers");
  Press(Qt::Key_F, Qt::ControlModifier);
  Type("two");
  for (const auto& [key, copied] : {std::pair(Qt::Key_C, "before"), {Qt::Key_A, "before"}, {Qt::Key_C, "two"}}) {
    Press(key, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), copied) << key;
  }
  slide();
  EXPECT_EQ(Choices(), "111111");
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Escape, Qt::Key_Escape}) Press(key);
  for (int time = 0; time < 2; ++time) {
    Enter(main, "listServers");
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "one\ttwo\tthree");
    QApplication::clipboard()->setText("before");
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, QPoint(5, 5));
    QApplication::sendEvent(&Find("listServers"), &menu);
    Entry("listCopy").trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), "one\ttwo\tthree");
    Press(Qt::Key_Escape);
  }
  const BoxReader reader([](QDialog& box) {
    box.findChild<QPlainTextEdit*>("message")->setFocus();
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_C}) QTest::keyClick(box.windowHandle(), key, Qt::ControlModifier);
    QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
  });
  toolkit::MsgBox("A message");
  EXPECT_EQ(QApplication::clipboard()->text(), "A message");
}

TEST_F(Windows, TabGoesThroughTheControlsInTheirOrder) {
  ASSERT_TRUE(Until([&] { return !control->Busy(); }));
  control->list_containers.ListIndex(0);
  const std::tuple<std::shared_ptr<toolkit::Window>, int, std::vector<std::string>> rows[] = {
      // clang-format off
      {main, 1, {"txtHostname", "txtUsername", "txtPassword", "btnAddServer", "listServers"}},
      {control, 1, {"list_overview", "btn_overview_refresh", "btn_overview_restart", "btn_overview_webui",
                    "btn_overview_reload", "qt_tabwidget_tabbar"}},
      {control, 2, {"list_containers", "btn_containers_refresh", "btn_containers_restart", "btn_containers_start",
                    "btn_containers_stop", "btn_containers_logs", "txt_containers_logs", "qt_tabwidget_tabbar"}},
      {update, 1, {"hvNotes", "btnOK", "btnCancel", "btnSkipVersion"}},
      // clang-format on
  };
  for (const auto& [window, panel, names] : rows) {
    control->tabs.Select(panel);
    QTest::qWait(20);
    Enter(window, QString::fromStdString(names.front()));
    std::vector<std::string> forth;
    std::vector<std::string> back;
    for (std::size_t step = 0; step < names.size(); ++step) forth.push_back(Focused()), Press(Qt::Key_Tab);
    EXPECT_EQ(forth, names);
    for (std::size_t step = 0; step < names.size(); ++step)
      Press(Qt::Key_Backtab, Qt::ShiftModifier), back.push_back(Focused());
    EXPECT_THAT(back, ElementsAreArray(names.rbegin(), names.rend()));
  }
}

TEST_F(Windows, OnlyTheRightPartsFollowTheFrame) {
  ASSERT_TRUE(Until([&] { return !control->Busy(); }));
  const QStringList form{"txtHostname", "txtUsername", "txtPassword", "btnAddServer", "labelVersion", "labelCopyright"};
  const QStringList lists{"tabs", "list_overview", "list_containers"};
  const std::tuple<std::shared_ptr<toolkit::Window>, int, QSize, QSize, QStringList, QStringList> rows[] = {
      // the window, its panel, the size that the user wants, how much larger it becomes, what moves and what grows then
      // clang-format off
      {main, 1, {900, 700}, {0, 186}, form, {}},       {main, 1, {600, 10}, {0, -450}, form, {}},
      {main, 1, {300, 2000}, {0, 1486}, form, {}},     {control, 1, {1000, 700}, {200, 200}, {}, lists},
      {control, 2, {1000, 700}, {200, 200}, {}, lists}, {control, 2, {10, 10}, {0, 0}, {}, lists},
      // clang-format on
  };
  for (const auto& [window, panel, wanted, more, moving, growing] : rows) {
    control->tabs.Select(panel);
    Enter(window, window == main ? "listServers" : "tabs");
    QWidget& frame = *QApplication::activeWindow();
    const QSize size = frame.size();
    const auto places = PlacesOf(*window);
    frame.resize(wanted + QSize(0, frame.findChild<QMenuBar*>()->height()));
    QTest::qWait(20);
    EXPECT_TRUE(frame.size() == size + more);
    for (const auto& [name, place] : PlacesOf(*window)) {
      QRect expected = places.at(name);
      if (moving.contains(name)) expected.translate(0, more.height());
      if (growing.contains(name)) expected.setSize(expected.size() + more);
      EXPECT_TRUE(place == expected) << name.toStdString() << " in a window of " << wanted.height();
    }
    frame.resize(size);
  }
}

TEST_F(Windows, OneKeyClosesEveryWindowWhoseFrameDoes) {
  for (const auto& [window, part] : std::initializer_list<std::pair<std::shared_ptr<toolkit::Window>, const char*>>{
           {update, "hvNotes"}, {logs, "list_logs"}, {control, "list_overview"}, {main, "txtHostname"}}) {
    Enter(window, part);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(window->IsClosed(), window != update) << part;
  }
}

TEST_F(Windows, EveryKeyDoesWhatDesktopsDo) {
  ASSERT_TRUE(Until([&] { return !control->Busy(); }));
  control->Show();
  auto& tabs = Find<QTabWidget>("tabs");
  std::string log;
  for (auto* button : {&control->btn_overview_refresh, &control->btn_containers_refresh, &control->btn_containers_logs,
                       &main->btnAddServer, &update->btnOK}) {
    button->Action = [&log, button] { log += button->Name() + ' '; };
  }
  control->list_containers.ListIndex(0);
  const auto& logsButton = control->btn_containers_logs.Name();
  const std::tuple<std::shared_ptr<toolkit::Window>, const char*, Qt::Key, Qt::KeyboardModifier, std::string, int>
      rows[] = {
          // the window, the part that has the keyboard, the key, what is pressed, the tab that shows then
          {main, "txtHostname", Qt::Key_Return, {}, "btnAddServer ", 1},
          {main, "txtPassword", Qt::Key_Enter, Qt::KeypadModifier, "btnAddServer ", 1},
          {main, "listServers", Qt::Key_F5, {}, "", 1},
          {control, "list_overview", Qt::Key_Return, {}, "", 1},
          {control, "list_overview", Qt::Key_F5, {}, "btn_overview_refresh ", 1},
          {control, "list_overview", Qt::Key_Tab, Qt::ControlModifier, "", 2},
          {control, "list_containers", Qt::Key_F5, {}, "btn_containers_refresh ", 2},
          {control, "list_containers", Qt::Key_Return, {}, logsButton + " ", 2},
          {control, "txt_containers_logs", Qt::Key_Return, {}, logsButton + " ", 2},
          {control, "txt_containers_logs", Qt::Key_Backtab, Qt::ControlModifier, "", 1},
          {control, "btn_overview_webui", Qt::Key_Tab, Qt::ControlModifier, "", 2},
          {control, "list_containers", Qt::Key_Tab, Qt::ControlModifier, "", 1},
          {update, "hvNotes", Qt::Key_Return, {}, "", 1},
          {update, "hvNotes", Qt::Key_Space, {}, "", 1},
          {update, "hvNotes", Qt::Key_Tab, {}, "", 1},
          {update, "hvNotes", Qt::Key_Return, {}, "btnOK ", 1},
      };
  for (const auto& [window, part, key, modifier, pressed, tab] : rows) {
    SCOPED_TRACE(std::string(part) + ", key " + std::to_string(key));
    log.clear();
    Enter(window, part);
    const auto with = key == Qt::Key_Backtab ? modifier | Qt::ShiftModifier : Qt::KeyboardModifiers(modifier);
    Press(key, with);
    EXPECT_TRUE(Until([&, &pressed = pressed] { return log == pressed; })) << log;  // a shortcut shows the press first
    EXPECT_EQ(tabs.currentIndex() + 1, tab);
  }
}

TEST_F(Windows, TheKeyboardStaysNearAButtonThatGoesOff) {
  ASSERT_TRUE(Until([&] { return !control->Busy(); }));
  control->Show();
  const std::tuple<const char*, toolkit::PushButton*, const char*, Qt::Key, const char*> rows[] = {
      {"btn_overview_reload", &control->btn_overview_reload, "btn_overview_webui", Qt::Key_unknown,
       "btn_overview_reload"},
      {"btn_overview_reload", &control->btn_overview_reload, "btn_overview_webui", Qt::Key_Up, "btn_overview_restart"},
      {"btn_overview_refresh", &control->btn_overview_refresh, "list_overview", Qt::Key_unknown,
       "btn_overview_refresh"}};
  for (const auto& [part, button, near, key, then] : rows) {
    Find(part).window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(Find(part).window()));
    Find(part).setFocus();
    button->Enabled(false);
    EXPECT_EQ(Focused(), near);
    if (key != Qt::Key_unknown) QTest::keyClick(Front(), key);
    button->Enabled(true);
    EXPECT_EQ(Focused(), then) << part;
  }
}

TEST_F(Windows, AFieldTakesWhatComesFromAnyInput) {
  auto& field = Find<QLineEdit>("txtHostname");
  QAccessible::queryAccessibleInterface(&field)->setText(QAccessible::Value, "spoken");
  EXPECT_EQ(main->txtHostname.Text(), "spoken");
  main->txtHostname.Enabled(false);
  field.setText("refused");
  EXPECT_EQ(field.text().toStdString() + main->txtHostname.Text(), "spokenspoken");
  main->txtHostname.Enabled(true).Text("\xFF");
  EXPECT_EQ(main->txtHostname.Text(), "\xFF") << "what is shown for it came back";
}

TEST_F(Windows, AWindowShowsOnAllItsPartsThatItWaits) {
  control->Show();
  const auto pointers = [](const char* name) {
    QWidget& part = Find(name);
    return std::vector{part.window()->cursor().shape(), part.cursor().shape()};
  };
  Find<QTabWidget>("tabs").setCurrentIndex(1);
  ASSERT_TRUE(control->Busy());
  EXPECT_THAT(pointers("txt_containers_logs"), Each(Qt::BusyCursor));
  EXPECT_THAT(pointers("btn_containers_refresh"), Each(Qt::BusyCursor));
  ASSERT_TRUE(Until([&] { return !control->Busy(); }));
  EXPECT_THAT(pointers("txt_containers_logs"), ElementsAre(Qt::ArrowCursor, Qt::IBeamCursor));
}

TEST_F(Windows, TheWheelTurnsUntilTheReloadsBoxIsGone) {
  ASSERT_TRUE(Until([&] { return !control->Busy(); }));
  Enter(control, "list_overview");
  QWidget& window = *QApplication::activeWindow();
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
  EXPECT_THAT(server.Requests(), SizeIs(3)) << "something was asked twice";
}
