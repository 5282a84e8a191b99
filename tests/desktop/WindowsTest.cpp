#include "servercontrol/wContainerLogs.h"
#include "servercontrol/wServer.h"
#include "serverlist/wMain.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FaultServer.h"
#include "update/install/KajuUpdateWindow.h"

using namespace test_servers;
using namespace testing;

namespace {

const Answer everything{{test_servers::Reply(
    200, R"({"status":"<b>Done</b>","systemName":"edge","containers":{"0":["web","up","1 s","hidden"]}})")}};

using Road = std::function<void()>;

/// All windows of the program.
struct Windows : Desktop {
  Windows() {
    main->listServers.AddRow({"one", "two", "three"});
    logs->list_logs.AddRow({"line"});
    Desktop::Open(main);
  }
  ~Windows() override { update->Close(); }
  /// Focuses the widget of that name, with all its text or a row selected and a known clipboard.
  QWidget& Enter(const std::shared_ptr<toolkit::Window>& window, const QString& name) {
    window->Show();
    QWidget& part = Find(name);
    part.window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(part.window()) &&
                Until([&] { return part.isVisible() && part.isEnabled(); }));
    QApplication::clipboard()->setText("before");
    part.setFocus();
    if (qobject_cast<QLineEdit*>(&part) != nullptr) {
      Press(Qt::Key_A, Qt::ControlModifier);
      Type("typed");
    }
    name.startsWith("list") ? Press(Qt::Key_Home) : Press(Qt::Key_A, Qt::ControlModifier);
    return part;
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
  /// Which entries of the open Edit menu are enabled, from Undo to Select All, as in "001000".
  static std::string Choices() {
    std::string choices;
    for (const char* name : {"EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"}) {
      choices += Entry(name).isEnabled() ? '1' : '0';
    }
    return choices;
  }

  FaultServer server{{everything}};
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
  const std::vector<std::pair<const char*, Road>> roads{{"click", click}, {"slide", slide}, {"access key", accessKey}};
};

}  // namespace

TEST_F(Windows, CopyAndTheEditMenuFollowTheFocus) {
  ASSERT_TRUE(Until([&] { return control->list_containers.ListCount() + control->list_overview.ListCount() == 20; }));
  update->Loading = true;
  update->hvNotes.LoadPage("<p>notes</p>", toolkit::FolderItem(""));
  control->list_containers.ListIndex(0);  // which enables the field for the number of log lines
  const std::string fact = control->list_overview.RowText(0);
  const std::tuple<std::shared_ptr<toolkit::Window>, const char*, int, std::string, std::string> places[] = {
      // the window, the widget, its panel, the enabled entries of the Edit menu ("" if it has none), what is copied
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
      Press(Qt::Key_C);  // the access key of Copy, which closes the menus unless it is disabled
      for (int left = choices[2] == '1' ? 0 : 2; left > 0; --left) Press(Qt::Key_Escape);  // the menu, then the bar
      EXPECT_TRUE(QApplication::activePopupWidget() == nullptr && part.hasFocus());
      EXPECT_EQ(QApplication::clipboard()->text().toStdString(), copied);
    }
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
          // the window, the focused widget, the key, the buttons that are pressed, the tab that is then shown
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
    EXPECT_TRUE(Until([&, &pressed = pressed] { return log == pressed; })) << log;  // after the button's animation
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
