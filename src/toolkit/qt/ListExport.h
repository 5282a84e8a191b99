#pragma once

#include <string>

#include "toolkit/Listbox.h"

class QWidget;

namespace toolkit::qt {

/// Copies the selected row, if there is one, to the clipboard, cells separated by tabs.
void CopySelectedRow(const Listbox& list);

/// Copies all rows to the clipboard, a line each.
void CopyAllRows(const Listbox& list);

/// Writes all rows to a file as UTF-8 text, atomically: a line per row, cells separated by tabs, line breaks in cells
/// replaced by blanks. Throws a RuntimeException with a message for the user if that fails.
void SaveRows(const Listbox& list, const std::string& path);

/// Opens a file dialog on the window of `parent` without waiting for it, and later saves the rows of `list` to the
/// chosen file.
void AskWhereToSave(const Listbox& list, QWidget& parent);

}  // namespace toolkit::qt
