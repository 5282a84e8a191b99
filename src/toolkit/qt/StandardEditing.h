#pragma once

#include <QWidget>

#include "toolkit/MenuBar.h"

namespace toolkit::qt {

/// Whether an editing action makes sense for `target`, the widget with the focus, as it is now.
[[nodiscard]] bool CanEdit(StandardAction action, QWidget* target);

/// Does it. Nothing happens where it makes no sense.
void Edit(StandardAction action, QWidget* target);

}  // namespace toolkit::qt
