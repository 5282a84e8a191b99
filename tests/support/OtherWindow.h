#pragma once

#include "toolkit/Window.h"

/// An empty window, which keeps the program running.
struct OtherWindow final : toolkit::Window {
  OtherWindow() : Window("Other", {100, 100}, {}, {100, 100}) {}
};
