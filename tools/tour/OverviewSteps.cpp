#include "tour/Conditions.h"
#include "tour/Tours.h"

namespace tour {
namespace {

using namespace std::chrono_literals;

const QString refresh = "btn_overview_refresh";
const QString restart = "btn_overview_restart";
const QString reload = "btn_overview_reload";
const QString webPanel = "btn_overview_webui";
const QString wheel = "overview_progress";
const QString facts = "list_overview";

Steps FirstLookSteps() {
  return {
      {"a double click on the server opens its window, and the overview fills with nineteen rows",
       DoubleClickRow("listServers", 0) + BringToFront(serverTitle),
       {WindowsOpen(serverTitle, 1), Rows(facts, 19), NoCellEmpty(facts, 2),
        Enabled({refresh, restart, reload, webPanel}), Hidden(wheel), Hidden("list_containers"), NoMessage()},
       "server-overview"},
      {"Tab reaches every control of the overview, in their order",
       ClickTab("tabs", "Overview") + TabThrough({"qt_tabwidget_tabbar", facts, refresh, restart, webPanel, reload}),
       {HasKeyboard("qt_tabwidget_tabbar")}},
      {"Refresh Information fills the list again",
       ClickRow(facts, 0) + Click(refresh),
       {Rows(facts, 19), NoRowSelected(facts), NoMessage()}},
  };
}

Steps ReloadSteps() {
  return {
      {"Reload Server turns its wheel and takes no second press",
       Click(reload),
       {Visible(wheel), Disabled({reload}), Enabled({refresh, restart, webPanel})},
       "server-reloading"},
      {"the status comes, and the wheel still turns", {}, {MessageWith("reload"), Visible(wheel), Disabled({reload})}},
      {"OK ends the wheel and gives the button back",
       PressInBox("OK"),
       {NoMessage(), Hidden(wheel), Enabled({reload})}},
  };
}

Steps ResizeSteps() {
  return {
      {"the server window grows: its list grows with it, its buttons stay",
       Grow(serverTitle, {200, 150}),
       {StandsAt("tabs", {20, 0, 960, 630}), StandsAt(facts, {40, 70, 920, 540}), StandsAt(refresh, {40, 38, 160, 20}),
        StandsAt(restart, {635, 38, 125, 20}), StandsAt(webPanel, {212, 38, 125, 20}),
        StandsAt(reload, {498, 38, 125, 20})},
       "server-grown"},
      {"it does not get smaller than it was at first",
       Grow(serverTitle, {-500, -400}),
       {StandsAt("tabs", {20, 0, 760, 480}), StandsAt(facts, {40, 70, 720, 390})}},
  };
}

}  // namespace

Steps OverviewSteps() {
  Steps steps = FirstLookSteps();
  for (const Steps& more : {ReloadSteps(), ResizeSteps()}) {
    steps.insert(steps.end(), more.begin(), more.end());
  }
  return steps;
}

Steps RebootSteps() {
  return {
      {"Reboot Server asks first",
       ClickTab("tabs", "Overview") + Click(restart),
       {Message("Are you sure you want to restart?"),
        Says("explanation", "All system services will be unavailable while the system restarts.")},
       "reboot-question"},
      {"Cancel leaves the server alone", PressInBox("Cancel"), {Throughout(500ms, NoMessage())}},
      {"Reboot Server asks again", Click(restart), {Message("Are you sure you want to restart?")}},
      {"Restart reboots the server, which tells its status", PressInBox("Restart"), {MessageWith("reboot")}},
      {"OK dismisses the status", PressInBox("OK"), {NoMessage(), Rows(facts, 19)}},
  };
}

}  // namespace tour
