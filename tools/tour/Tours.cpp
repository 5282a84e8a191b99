#include "tour/Tours.h"

#include <initializer_list>

#include "tour/Conditions.h"

namespace tour {
namespace {

using namespace std::chrono_literals;

Step QuitStep() {
  return {
      "Quit in the menu ends the program", ChooseFromMenu("FileMenu", "FileQuit"), {}, {}, 15s, Ending::ProgramEnds};
}

Steps Join(std::initializer_list<Steps> parts) {
  Steps all;
  for (const Steps& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// The windows of the panel.
Steps PanelPictureSteps(const Visit& visit) {
  return {
      {"the main window opens", BringToFront(mainTitle), {WindowsOpen(mainTitle, 1)}, "main-empty"},
      {"a message comes", Click("btnAddServer"), {Visible("dialogBox")}, "message"},
      {"the message goes", PressInBox("OK"), {NoMessage()}},
      {"a server is added",
       Fill("txtHostname", visit.host) + Fill("txtUsername", visit.user) + Fill("txtPassword", visit.password) +
           Click("btnAddServer"),
       {Rows("listServers", 1), NoMessage()},
       "main"},
      {"its window opens",
       DoubleClickRow("listServers", 0) + BringToFront(serverTitle),
       {Rows("list_overview", 19), NoMessage()},
       "server-overview"},
      {"a question comes", Click("btn_overview_restart"), {Visible("dialogBox")}, "reboot-question"},
      {"the question goes", PressInBox("Cancel"), {NoMessage()}},
      {"its containers come",
       ClickTab("tabs", "Containers"),
       {MoreRowsThan("list_containers", 1), Disabled({"btn_containers_stop"})},
       "server-containers"},
      {"one is selected",
       ClickRow("list_containers", QStringLiteral("web")),
       {Enabled({"btn_containers_stop"})},
       "server-containers-selected"},
      {"its log opens",
       Click("btn_containers_logs") + BringToFront(logTitle),
       {Rows("list_logs", 20), NoMessage()},
       "log"},
      {"a text is found in it",
       Key(Qt::Key_Home) + Key(Qt::Key_F, Qt::ControlModifier) + Keys("ms"),
       {FoundFirst("list_logs", "ms")},
       "log-find"},
  };
}

}  // namespace

Steps ClosingSteps() {
  return {
      {"Enter on the server's row opens a second window of the server",
       BringToFront(mainTitle) + ClickRow("listServers", 0) + Key(Qt::Key_Return),
       {WindowsOpen(serverTitle, 2), Rows("list_overview", 19), NoMessage()}},
      {"closes it; the first one stays", Close(serverTitle), {WindowsOpen(serverTitle, 1)}},
      {"closes the first one; the log windows stay",
       Close(serverTitle),
       {WindowsOpen(serverTitle, 0), WindowsOpen(logTitle, 2)}},
      {"closes the log windows; the main window stays, with its server",
       Close(logTitle) + Close(logTitle),
       {WindowsOpen(logTitle, 0), WindowsOpen(mainTitle, 1), Rows("listServers", 1)}},
      {"opens the menu Edit", ClickMenu("EditMenu"), {Visible("EditMenu")}, "menu"},
      {"Escape closes it", Key(Qt::Key_Escape), {Hidden("EditMenu")}},
      {"the main window grows in height only, and the form stays at its foot",
       Grow(mainTitle, {100, 86}),
       {StandsAt("listServers", {0, 162, 600, 200}), StandsAt("txtHostname", {20, 460, 560, 22})},
       "main-grown"},
      QuitStep(),
  };
}

Steps FullTour(const Visit& visit, Publisher& publisher) {
  return Join({MainWindowSteps(visit), UpdateSteps(publisher), OverviewSteps(), ContainerSteps(), LogSteps(),
               RebootSteps(), ClosingSteps()});
}

Steps PictureTour(const Visit& visit, Publisher& publisher) {
  const Step back{"the main window comes back", BringToFront(mainTitle), {HasKeyboard("listServers")}};
  return Join({PanelPictureSteps(visit), UpdatePictureSteps(publisher), {back, QuitStep()}});
}

}  // namespace tour
