#include "servercontrol/wContainerLogs.h"

wContainerLogs::wContainerLogs() : Window("Corvane - Container Logs", {600, 400}, {500, 400}, {32000, 32000}) {
  Add(list_logs, "list_logs", {0, 0, 600, 400}, toolkit::allEdges, 0)
      .Texts(toolkit::ListTexts::Terminal)
      .AccessibleName("Log lines");
  OpenControls();
}
