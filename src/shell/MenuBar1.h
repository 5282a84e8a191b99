#pragma once

#include <memory>

#include "toolkit/MenuBar.h"

/// The program's one menu bar, shared by the windows that show it. Made at the first call; always the same object.
[[nodiscard]] std::shared_ptr<const toolkit::MenuBar> MenuBar1();
