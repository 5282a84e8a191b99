#pragma once

#include <memory>

#include "toolkit/MenuBar.h"

/// The program's one menu bar, shared by the windows that show it. Created by the first call; all calls return the same
/// object.
[[nodiscard]] std::shared_ptr<const toolkit::MenuBar> MenuBar1();
