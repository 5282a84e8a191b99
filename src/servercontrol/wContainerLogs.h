#pragma once

#include "toolkit/Listbox.h"
#include "toolkit/Window.h"

/// Shows the lines of a container's log. The caller fills and names the window before it shows it; the window has no
/// reference to its container.
class wContainerLogs final : public toolkit::Window {
 public:
  wContainerLogs();

  toolkit::Listbox list_logs;
};
