#include "tour/Conditions.h"
#include "tour/Tours.h"

namespace tour {
namespace {

const QString list = "list_containers";
const QString refresh = "btn_containers_refresh";
const QString restart = "btn_containers_restart";
const QString start = "btn_containers_start";
const QString stop = "btn_containers_stop";
const QString logs = "btn_containers_logs";
const QString count = "txt_containers_logs";
const QString container = "web";

Steps SelectionSteps() {
  return {
      {"the tab Containers shows the containers, and nothing to do to them yet",
       ClickTab("tabs", "Containers"),
       {MoreRowsThan(list, 1), NoCellEmpty(list, 3), NoRowSelected(list), Enabled({refresh}),
        Disabled({restart, start, stop, logs, count}), Hidden("btn_containers_backup"), Hidden("list_overview")},
       "server-containers"},
      {"a selected container can be started, stopped, restarted and asked for its log",
       ClickRow(list, container),
       {RowSelected(list), Enabled({refresh, restart, start, stop, logs, count}), Hidden("btn_containers_backup")},
       "server-containers-selected"},
      {"Tab reaches every control of the containers, in their order",
       TabThrough({list, refresh, restart, start, stop, logs, count, "qt_tabwidget_tabbar"}),
       {HasKeyboard(list), RowSelected(list)}},
      {"the panel's own container can only be restarted",
       ClickRow(list, QStringLiteral("service_dunmere")),
       {RowSelected(list), Enabled({refresh, restart}), Disabled({start, stop, logs, count})},
       "server-containers-own"},
      {"Refresh Containers brings the list again, with nothing selected",
       Click(refresh),
       {MoreRowsThan(list, 1), NoRowSelected(list), Enabled({refresh}), Disabled({restart, start, stop, logs, count})}},
  };
}

/// Presses a button for the container and looks for its new state in the list that then comes.
Steps ActionSteps(const QString& caption, const QString& button, const QString& newState) {
  return {
      {caption + " tells its status", ClickRow(list, container) + Click(button), {MessageWith(container)}, "status"},
      {"OK brings the list again: the container is " + newState,
       PressInBox("OK"),
       {NoMessage(), MoreRowsThan(list, 1), CellSays(list, container, 1, newState), NoRowSelected(list),
        Enabled({refresh}), Disabled({restart, start, stop, logs, count})}},
  };
}

}  // namespace

Steps ContainerSteps() {
  Steps steps = SelectionSteps();
  for (const Steps& more : {ActionSteps("Stop", stop, "exited"), ActionSteps("Start", start, "running"),
                            ActionSteps("Stop", stop, "exited"), ActionSteps("Restart", restart, "running")}) {
    steps.insert(steps.end(), more.begin(), more.end());
  }
  return steps;
}

}  // namespace tour
