#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <Qt>

/// What a user does, as mouse and key events that go through the windows of the screen.
namespace tour {

/// One event of the user's.
struct Input {
  /// What keeps a user from doing it now; empty if nothing does. May bring the window to the front.
  std::function<QString()> Obstacle;
  /// Does it. Returns late if a message box comes up: when that is gone.
  std::function<void()> Act;
};
using Inputs = std::vector<Input>;

Inputs operator+(Inputs first, Inputs second);

[[nodiscard]] Inputs Click(const QString& name);
[[nodiscard]] Inputs ClickTab(const QString& tabs, const QString& caption);
/// Rows go by the text of their first cell.
[[nodiscard]] Inputs ClickRow(const QString& list, const QString& row);
/// Presses a button of the message box.
[[nodiscard]] Inputs PressInBox(const QString& caption);

[[nodiscard]] Inputs Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
[[nodiscard]] Inputs Keys(const QString& text);
/// Clicks into a field, and types over what stands there.
[[nodiscard]] Inputs Fill(const QString& field, const QString& text);

/// The newest window with this title, as the screen's own frame around it would do.
[[nodiscard]] Inputs BringToFront(const QString& title);

}  // namespace tour
