#pragma once

#include <string>
#include <utility>

#include "toolkit/Event.h"

namespace toolkit {

/// A rectangle in points, from the top left corner of the window's content.
struct Rect {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;

  friend bool operator==(const Rect&, const Rect&) = default;
};

/// The window edges to which a control keeps its distance. Locked to two opposite edges, it grows with the window.
struct Locks {
  bool Left = false;
  bool Top = false;
  bool Right = false;
  bool Bottom = false;
};

// The locks that windows use.
inline constexpr Locks topLeft{.Left = true, .Top = true, .Right = false, .Bottom = false};
inline constexpr Locks topAndSides{.Left = true, .Top = true, .Right = true, .Bottom = false};
inline constexpr Locks bottomAndSides{.Left = true, .Top = false, .Right = true, .Bottom = true};
inline constexpr Locks bottomRight{.Left = false, .Top = false, .Right = true, .Bottom = true};
inline constexpr Locks allEdges{.Left = true, .Top = true, .Right = true, .Bottom = true};

enum class FocusPolicy { Accepts, Refuses };

/// Shows a control on the screen. Owned by the desktop; the control only notifies it of changes.
class ControlView {
 public:
  virtual ~ControlView() = default;
  /// A property, the rows or the selection have changed. Called often: must be cheap.
  virtual void Refresh() = 0;
};

/// The base of all controls: name, position and state. The control itself holds its state, and works the same without a
/// view.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// Raised once, when the window has created all its controls.
  Event<> Open;

  [[nodiscard]] const std::string& Name() const { return name_; }
  /// The position in a window of its designed size.
  [[nodiscard]] Rect Frame() const { return frame_; }
  [[nodiscard]] Locks LockedTo() const { return locks_; }
  /// The position in the tab order of the window, counted from 0.
  [[nodiscard]] int TabOrder() const { return tabOrder_; }
  [[nodiscard]] FocusPolicy Focus() const { return focus_; }
  [[nodiscard]] bool Enabled() const { return enabled_; }
  [[nodiscard]] bool Visible() const { return visible_; }
  /// The panel of the window's TabPanel that the control is on, 0 for none.
  [[nodiscard]] int Panel() const { return panel_; }
  /// Whether the control is visible, and not on a panel that is hidden.
  [[nodiscard]] bool IsOnScreen() const { return visible_ && panelShows_; }
  /// Whether the user can use the control while no dialog is open.
  [[nodiscard]] bool CanBeUsed() const { return enabled_ && IsOnScreen(); }
  /// The name that screen readers announce.
  [[nodiscard]] virtual std::string AccessibleName() const { return accessibleName_; }

  /// Sets name and position; called by the window when it builds itself.
  void Place(std::string name, Rect frame, Locks locks, int tabOrder);
  /// Sets the panel that the control is on and the one that is shown; called by the TabPanel.
  void ShowOnPanel(int panel, int shownPanel);
  /// Sets the view to notify; nullptr for none.
  void ShowIn(ControlView* view) { view_ = view; }
  /// `view` is being destroyed. Does nothing if another view has been set since.
  void LeaveView(const ControlView& view) {
    if (view_ == &view) view_ = nullptr;
  }

 protected:
  explicit Control(FocusPolicy focus) : focus_(focus) {}
  void Changed() const;
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  void SetAccessibleName(std::string name);
  /// Whether the user may act on the control now. If not, notifies the view, so that it shows the unchanged state.
  [[nodiscard]] bool Operable() const;

 private:
  std::string name_;
  Rect frame_;
  Locks locks_;
  int tabOrder_ = 0;
  FocusPolicy focus_;
  bool enabled_ = true;
  bool visible_ = true;
  int panel_ = 0;
  bool panelShows_ = true;
  std::string accessibleName_;
  ControlView* view_ = nullptr;
};

/// The setters common to all controls. They return the control's own type, so that calls chain.
template <typename Kind>
class ControlOf : public Control {
 public:
  using Control::AccessibleName;
  using Control::Enabled;
  using Control::Visible;

  Kind& Enabled(bool enabled) {
    SetEnabled(enabled);
    return Self();
  }
  Kind& Visible(bool visible) {
    SetVisible(visible);
    return Self();
  }
  Kind& AccessibleName(std::string name) {
    SetAccessibleName(std::move(name));
    return Self();
  }

 protected:
  explicit ControlOf(FocusPolicy focus) : Control(focus) {}
  Kind& Self() { return static_cast<Kind&>(*this); }
  /// Sets a property and notifies the view.
  template <typename Value>
  Kind& Set(Value& property, Value value) {
    property = std::move(value);
    Changed();
    return Self();
  }
};

}  // namespace toolkit
