#pragma once

#include <QPoint>
#include <QWidget>

#include "toolkit/Listbox.h"
#include "toolkit/qt/FindBar.h"

namespace toolkit::qt {

/// Gives the view of `list` its commands, each with its key: Copy All, Save As… and those that look for a text by
/// `find`.
void AddListCommands(QWidget& view, const Listbox& list, FindBar& find);

/// Offers Copy and the commands of `view` in a menu at a position on the screen, and does not wait.
void PopUpListCommands(QWidget& view, const Listbox& list, const QPoint& position);

}  // namespace toolkit::qt
