#pragma once

#include <QPoint>
#include <QWidget>

#include "toolkit/Listbox.h"
#include "toolkit/qt/FindBar.h"

namespace toolkit::qt {

/// Adds the commands of `list`, with their shortcuts, to its view: Copy All, Save As… and those of the `find` bar.
void AddListCommands(QWidget& view, const Listbox& list, FindBar& find);

/// Opens a menu with Copy and the commands of `view` at a position on the screen, without waiting for it.
void PopUpListCommands(QWidget& view, const Listbox& list, const QPoint& position);

}  // namespace toolkit::qt
