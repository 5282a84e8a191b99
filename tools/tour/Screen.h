#pragma once

#include <QString>
#include <QWidget>

/// What a user sees of the program. Widgets are found by their object names, in the newest window that has one. Nothing
/// here changes anything.
namespace tour::screen {

/// The newest visible window with this title; nullptr if there is none.
[[nodiscard]] QWidget* NewestWindow(const QString& title);

/// The visible widget with this name, in the newest window that has one; nullptr if there is none.
[[nodiscard]] QWidget* Find(const QString& name);

/// As Find(), for a widget of this class.
template <typename Kind>
Kind* FindAs(const QString& name) {
  return qobject_cast<Kind*>(Find(name));
}

/// The open message box; nullptr if there is none.
[[nodiscard]] QWidget* Box();

/// The text of a label or a button, or the chosen row of a menu.
[[nodiscard]] QString TextOf(const QWidget& part);

/// How many rows a list shows; -1 if there is no such list.
[[nodiscard]] int RowCount(const QString& list);

/// The row of a list whose first cell is `name`; -1 if there is none.
[[nodiscard]] int RowNamed(const QString& list, const QString& name);

/// The window that a user would look at: the message box if one is open, else the active window, else the newest.
[[nodiscard]] QWidget* Front();

/// Writes a picture of Front() to `path`: of the screen where that can be read, else as the window renders itself.
[[nodiscard]] bool SavePicture(const QString& path);

}  // namespace tour::screen
