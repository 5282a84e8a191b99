#pragma once

#include "toolkit/Listbox.h"
#include "toolkit/Window.h"

/// The lines of a container's log. The window is filled and named before it is shown, and knows nothing of its
/// container.
class wContainerLogs final : public toolkit::Window {
 public:
  wContainerLogs();

  toolkit::Listbox list_logs;
};
