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

/// The window edges that a control keeps its distance to. Locked to two opposite ones, it grows with the window.
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

/// Shows a control on the screen. Belongs to the desktop; the control only tells it when something changed.
class ControlView {
 public:
  virtual ~ControlView() = default;
  /// The control's properties, rows or selection are no longer what they were. Called often: must be cheap.
  virtual void Refresh() = 0;
};

/// What all controls have in common: a name, a place, a state. A control holds its state itself, and it works the same
/// whether or not a view shows it.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  /// Raised once, when the window has built all its controls.
  Event<> Open;

  [[nodiscard]] const std::string& Name() const { return name_; }
  /// The place in a window of its designed size.
  [[nodiscard]] Rect Frame() const { return frame_; }
  [[nodiscard]] Locks LockedTo() const { return locks_; }
  /// The place in the order in which the Tab key goes through the window, counted from 0.
  [[nodiscard]] int TabOrder() const { return tabOrder_; }
  [[nodiscard]] FocusPolicy Focus() const { return focus_; }
  [[nodiscard]] bool Enabled() const { return enabled_; }
  [[nodiscard]] bool Visible() const { return visible_; }
  /// The panel of the window's TabPanel that the control stands on, 0 for none.
  [[nodiscard]] int Panel() const { return panel_; }
  /// Whether the control is visible and on no panel or on the one that shows.
  [[nodiscard]] bool IsOnScreen() const { return visible_ && panelShows_; }
  /// Whether the user can act on the control, unless a dialog is open.
  [[nodiscard]] bool CanBeUsed() const { return enabled_ && IsOnScreen(); }
  /// What a screen reader calls the control.
  [[nodiscard]] virtual std::string AccessibleName() const { return accessibleName_; }

  /// Where the window puts the control; called by the window when it builds itself.
  void Place(std::string name, Rect frame, Locks locks, int tabOrder);
  /// Which panel the control stands on, and which one shows; called by the TabPanel.
  void ShowOnPanel(int panel, int shownPanel);
  /// The view that follows this control from now on; nullptr for none.
  void ShowIn(ControlView* view) { view_ = view; }
  /// `view` goes. Does nothing if another one follows the control by then.
  void LeaveView(const ControlView& view) {
    if (view_ == &view) view_ = nullptr;
  }

 protected:
  explicit Control(FocusPolicy focus) : focus_(focus) {}
  void Changed() const;
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  void SetAccessibleName(std::string name);
  /// Whether the user may act on the control now. If not, the view is told, so that it shows nothing else.
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

/// The setters that every kind of control has. They return the control's own type, so that calls chain.
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
  /// Sets one of the control's own properties.
  template <typename Value>
  Kind& Set(Value& property, Value value) {
    property = std::move(value);
    Changed();
    return Self();
  }
};

}  // namespace toolkit
