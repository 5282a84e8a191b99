#pragma once

#include <string>

#include "toolkit/Listbox.h"

class QWidget;

namespace toolkit::qt {

/// Puts the selected row of `list` on the clipboard, cells separated by tabs. Nothing happens where none is selected.
void CopySelectedRow(const Listbox& list);

/// Puts all rows on the clipboard, a line each.
void CopyAllRows(const Listbox& list);

/// Writes all rows to a file as UTF-8 text: a line a row, cells separated by tabs, line breaks inside a cell as blanks.
/// The file is written whole or not at all. Throws a RuntimeException with a message for the user if it cannot be.
void SaveRows(const Listbox& list, const std::string& path);

/// Asks for a file, beside the window of `parent` and without waiting, and then saves the rows of `list` to it.
void AskWhereToSave(const Listbox& list, QWidget& parent);

}  // namespace toolkit::qt
