#pragma once

#include <memory>
#include <string>
#include <vector>

#include "toolkit/Control.h"
#include "toolkit/Event.h"
#include "toolkit/Graphics.h"
#include "toolkit/HandlerTurn.h"
#include "toolkit/MenuBar.h"
#include "toolkit/PushButton.h"
#include "toolkit/Size.h"
#include "toolkit/TabPanel.h"

namespace toolkit {

/// Shows a window on the screen. Owned by the desktop.
class WindowView {
 public:
  virtual ~WindowView() = default;
  /// The window's background, title or subject has changed.
  virtual void Refresh() = 0;
  /// Busy() has changed.
  virtual void RefreshBusy() = 0;
};

/// What the user can do with the window's frame: everything, or only move it. A fixed window keeps its size.
enum class WindowFrame { Standard, Fixed };

/// Whether the user's own action opens the window. If so, it takes the keyboard focus; otherwise it leaves the focus in
/// a text field that is in use, and requests attention.
enum class WindowOrigin { Asked, Unasked };

/// A window: a title, a size and controls. Create it with std::make_shared and show it with Show(); the platform owns
/// it while it is open. A window whose handler is running is kept alive until that handler returns.
///
/// The handlers of a closed window are not called: late replies are dropped.
class Window : public std::enable_shared_from_this<Window> {
 public:
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  /// Raised once, when the window has been shown and painted for the first time.
  Event<> Open;
  /// The user pressed Escape, and there is no cancel button.
  Event<> Escape;
  /// The background behind the controls is to be drawn. May be raised often; handlers must not change anything.
  Event<Graphics&> Paint;

  [[nodiscard]] const std::string& Title() const { return title_; }
  /// The size of the content, which the user may have changed.
  [[nodiscard]] Size ContentSize() const { return size_; }
  [[nodiscard]] Size MinimumSize() const { return minimum_; }
  [[nodiscard]] Size MaximumSize() const { return maximum_; }
  [[nodiscard]] WindowFrame Frame() const { return frame_; }
  [[nodiscard]] WindowOrigin Origin() const { return origin_; }
  /// The subject of the window in a few words, where its title is not specific enough; or empty. Shown beside the menus
  /// and by the desktop, announced by screen readers, and the default title of its dialogs.
  [[nodiscard]] const std::string& Subject() const { return subject_; }
  void Subject(std::string subject);
  /// Whether the window waits for something. The pointer shows it; everything stays usable.
  [[nodiscard]] bool Busy() const { return waits_ > 0; }
  /// The controls in order of creation; later ones are drawn over earlier ones.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// The window's menus, nullptr if it has none. Windows may share one bar.
  [[nodiscard]] const std::shared_ptr<const MenuBar>& Menus() const { return menus_; }
  /// The position of `control` at the window's present size: moved and stretched according to its locks.
  [[nodiscard]] Rect PlaceOf(const Control& control) const;

  /// The button with that role that the user can press now, nullptr if there is none.
  [[nodiscard]] const PushButton* ButtonOf(ButtonRole role) const;

  /// Opens the window, or brings it to the front.
  void Show();
  /// Called by the desktop when the window has been painted. Raises Open the first time.
  void TellPainted();
  /// Hides the window, disables its handlers and calls Event_Close. Safe at any time, also in a handler of the window.
  /// A closed window may be shown again.
  void Close();
  /// Closes the window like the user, by its frame, by the keyboard or by the end of the desktop session: presses its
  /// cancel button if that is enabled. Ignored while a dialog is open.
  void CloseAsUser();
  [[nodiscard]] bool IsClosed() const { return closed_; }
  /// The user has resized the content; clamped to the minimum and maximum.
  void Resize(Size size);
  /// Sets the view to notify; nullptr for none.
  void ShowIn(WindowView* view) { view_ = view; }
  /// `view` is being destroyed. Does nothing if another view has been set since.
  void LeaveView(const WindowView& view) {
    if (view_ == &view) view_ = nullptr;
  }

 protected:
  /// `size` is the size that the controls were designed for, and the initial size.
  Window(std::string title, Size size, Size minimum, Size maximum, WindowFrame frame = WindowFrame::Standard);

  /// The window has been closed; its handlers are no longer called. The end of the program closes every window.
  virtual void Event_Close() {}
  /// Requests a repaint of the background.
  void Invalidate() const;

  /// Adds a control, which must be a member of the window, and returns it.
  template <typename Kind>
  Kind& Add(Kind& control, std::string name, Rect frame, Locks locks, int tabOrder) {
    control.Place(std::move(name), frame, locks, tabOrder);
    controls_.push_back(&control);
    return control;
  }

  /// Like Add, on a panel of `tabs`.
  template <typename Kind>
  Kind& AddTo(TabPanel& tabs, int panel, Kind& control, std::string name, Rect frame, Locks locks, int tabOrder) {
    tabs.Adopt(control, panel);
    return Add(control, std::move(name), frame, locks, tabOrder);
  }

  void Menus(std::shared_ptr<const MenuBar> menus) { menus_ = std::move(menus); }
  void Origin(WindowOrigin origin) { origin_ = origin; }

  /// Count what the window waits for; see Busy().
  void BeginWait();
  void EndWait();

  /// Sets `handler` as the handler of `event`. It is not called once the window is closed; the result is
  /// value-initialised then.
  template <typename Answer, typename... Arguments>
  void On(Question<Answer, Arguments...>& event, typename Question<Answer, Arguments...>::Handler handler) {
    event = [this, handler = std::move(handler)](Arguments... arguments) {
      const HandlerTurn turn(weak_from_this().lock());
      return closed_ ? Answer() : handler(arguments...);
    };
  }

  /// The same for a member function of this window.
  template <typename Self, typename Answer, typename... Arguments>
  void On(Question<Answer, Arguments...>& event, Answer (Self::*handler)(Arguments...)) {
    On(event, [this, handler](Arguments... arguments) { return (static_cast<Self*>(this)->*handler)(arguments...); });
  }

  /// Raises Open on every control; the last step of building the window.
  void OpenControls();

 private:
  std::string title_;
  std::string subject_;
  Size designed_;
  Size size_;
  Size minimum_;
  Size maximum_;
  WindowFrame frame_;
  WindowOrigin origin_ = WindowOrigin::Asked;
  int waits_ = 0;
  WindowView* view_ = nullptr;
  std::vector<Control*> controls_;
  std::shared_ptr<const MenuBar> menus_;
  bool opened_ = false;
  bool closed_ = false;
};

}  // namespace toolkit
