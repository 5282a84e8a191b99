#include "tour/Conditions.h"
#include "tour/Tours.h"

namespace tour {
namespace {

const QString countMessage =
    "You must provide a number of logs to retrieve. The higher the number the longer the request will take. Enter 0 to "
    "retrieve all logs for a container.";
const QString logs = "btn_containers_logs";
const QString count = "txt_containers_logs";
const QString lines = "list_logs";
const QString wanted = "worker";

Steps OpeningSteps() {
  return {
      {"a log count that is no number is refused",
       ClickRow("list_containers", QStringLiteral("web")) + Fill(count, "abc") + Click(logs),
       {Message(countMessage)},
       "message-long"},
      {"OK dismisses it; the count is kept",
       PressInBox("OK"),
       {NoMessage(), Says(count, "abc"), WindowsOpen(logTitle, 0)}},
      {"Logs with 20 opens a window with the last twenty lines",
       Fill(count, "20") + Click(logs) + BringToFront(logTitle),
       {WindowsOpen(logTitle, 1), Rows(lines, 20), NoCellEmpty(lines, 1), NoMessage()},
       "log"},
      {"Logs with 0 opens a second window, with all lines",
       Fill(count, "0") + Click(logs),
       {WindowsOpen(logTitle, 2), MoreRowsThan(lines, 20), NoMessage()}},
      {"the second window comes to the front", BringToFront(logTitle), {HasKeyboard(lines)}, "log-all"},
  };
}

Steps SearchSteps() {
  return {
      {"Ctrl+F finds a text: the bar counts its rows, and the first is selected",
       Key(Qt::Key_Home) + Key(Qt::Key_F, Qt::ControlModifier) + Keys(wanted),
       {Visible("findBar"), FoundFirst(lines, wanted)},
       "log-find"},
      {"Escape closes the bar; the keyboard is back in the list",
       Key(Qt::Key_Escape),
       {Hidden("findBar"), HasKeyboard(lines), RowSelected(lines)}},
      {"Ctrl+C copies the selected row", Key(Qt::Key_C, Qt::ControlModifier), {SelectedRowCopied(lines)}},
      {"a right click on a row offers what can be done with the list",
       RightClickRow(lines, 2),
       {Visible("listMenu")},
       "log-menu"},
      {"Escape closes the menu", Key(Qt::Key_Escape), {Hidden("listMenu")}},
      {"the log window grows, and its lines with it",
       Grow(logTitle, {300, 200}),
       {StandsAt(lines, {0, 0, 900, 600})},
       "log-grown"},
  };
}

}  // namespace

Steps LogSteps() {
  Steps steps = OpeningSteps();
  const Steps search = SearchSteps();
  steps.insert(steps.end(), search.begin(), search.end());
  return steps;
}

}  // namespace tour
