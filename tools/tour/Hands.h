#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <Qt>

/// What a user does, as mouse and key events that are sent to the windows.
namespace tour {

/// One event of the mouse or the keyboard.
struct Input {
  /// Why a user could not do it now; empty if nothing prevents it. May bring the window to the front.
  std::function<QString()> Obstacle;
  /// Performs the input. If that opens a message box, returns only after the box is closed.
  std::function<void()> Act;
};
using Inputs = std::vector<Input>;

Inputs operator+(Inputs first, Inputs second);

[[nodiscard]] Inputs Click(const QString& name);
[[nodiscard]] Inputs ClickTab(const QString& tabs, const QString& caption);
/// `row` is the text of its first cell.
[[nodiscard]] Inputs ClickRow(const QString& list, const QString& row);
/// Clicks a button of the message box.
[[nodiscard]] Inputs PressInBox(const QString& caption);

[[nodiscard]] Inputs Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
[[nodiscard]] Inputs Keys(const QString& text);
/// Clicks a field and replaces its text.
[[nodiscard]] Inputs Fill(const QString& field, const QString& text);

/// Activates the newest window with this title, as a click on its frame would.
[[nodiscard]] Inputs BringToFront(const QString& title);

}  // namespace tour
