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

/// Shows a window on the screen. Belongs to the desktop.
class WindowView {
 public:
  virtual ~WindowView() = default;
  /// The window's background, title or subject is no longer what it was.
  virtual void Refresh() = 0;
  /// The window has begun to be busy, or ended.
  virtual void RefreshBusy() = 0;
};

/// What the user can do to a window by its frame: everything, or only move it. A fixed one keeps its size.
enum class WindowFrame { Standard, Fixed };

/// Whether the user's own press opens a window. That one takes the keyboard; one that nobody asked for leaves it in a
/// field that is in use, and asks for attention.
enum class WindowOrigin { Asked, Unasked };

/// A window: a title, a size and controls. It is made with std::make_shared, shown with Show(), and owned by the
/// platform while it is open. A window whose handler is running lives at least until that handler ends.
///
/// Once the window is closed, its handlers no longer run: late replies have no consumer.
class Window : public std::enable_shared_from_this<Window> {
 public:
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  /// Raised once, when the window has been shown and painted for the first time.
  Event<> Open;
  /// The user pressed Escape, and there is no cancel button.
  Event<> Escape;
  /// The background is to be drawn, behind the controls. May be raised often, and must change nothing.
  Event<Graphics&> Paint;

  [[nodiscard]] const std::string& Title() const { return title_; }
  /// The size of the content; it follows what the user makes of the window.
  [[nodiscard]] Size ContentSize() const { return size_; }
  [[nodiscard]] Size MinimumSize() const { return minimum_; }
  [[nodiscard]] Size MaximumSize() const { return maximum_; }
  [[nodiscard]] WindowFrame Frame() const { return frame_; }
  [[nodiscard]] WindowOrigin Origin() const { return origin_; }
  /// What the window is about, in a few words, where its title does not tell it from others; or empty. Shown beside the
  /// controls and by the desktop, told to screen readers, and what its dialogs are called if they have nothing better.
  [[nodiscard]] const std::string& Subject() const { return subject_; }
  void Subject(std::string subject);
  /// Whether the window waits for something. The pointer tells it; everything can be used meanwhile.
  [[nodiscard]] bool Busy() const { return waits_ > 0; }
  /// The controls in the order in which they were created; later ones lie over earlier ones.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// The window's menus, nullptr if it has none. Several windows may share one bar.
  [[nodiscard]] const std::shared_ptr<const MenuBar>& Menus() const { return menus_; }
  /// Where `control` stands in the window at its present size: moved and stretched as its locks say.
  [[nodiscard]] Rect PlaceOf(const Control& control) const;

  /// The button of that role that the user can press now, nullptr if there is none.
  [[nodiscard]] const PushButton* ButtonOf(ButtonRole role) const;

  /// Opens the window, or brings it to the front.
  void Show();
  /// For the desktop: the window has been painted. Raises Open, if it was not raised before.
  void TellPainted();
  /// Takes the window off the screen, ends its handlers and calls Event_Close. Safe at any time, also in a handler of
  /// the window. A closed window may be shown again.
  void Close();
  /// Closes the window as the user does by its frame, by the keyboard or by the end of the desktop session: presses its
  /// cancel button, if it has one that can be pressed. Does nothing while a dialog stands.
  void CloseAsUser();
  [[nodiscard]] bool IsClosed() const { return closed_; }
  /// The user, through the desktop, gave the content another size; kept within the minimum and maximum.
  void Resize(Size size);
  /// The view that follows this window from now on; nullptr for none.
  void ShowIn(WindowView* view) { view_ = view; }
  /// `view` goes. Does nothing if another one follows the window by then.
  void LeaveView(const WindowView& view) {
    if (view_ == &view) view_ = nullptr;
  }

 protected:
  /// `size` is the size the controls were designed for, and the one the window starts with.
  Window(std::string title, Size size, Size minimum, Size maximum, WindowFrame frame = WindowFrame::Standard);

  /// The window has been closed; no handler of it runs any more. The end of the program closes every window.
  virtual void Event_Close() {}
  /// Lets the background be painted anew.
  void Invalidate() const;

  /// Adds a control, which must be a member of the window, and returns it as its own type.
  template <typename Kind>
  Kind& Add(Kind& control, std::string name, Rect frame, Locks locks, int tabOrder) {
    control.Place(std::move(name), frame, locks, tabOrder);
    controls_.push_back(&control);
    return control;
  }

  /// As Add, on a panel of `tabs`.
  template <typename Kind>
  Kind& AddTo(TabPanel& tabs, int panel, Kind& control, std::string name, Rect frame, Locks locks, int tabOrder) {
    tabs.Adopt(control, panel);
    return Add(control, std::move(name), frame, locks, tabOrder);
  }

  void Menus(std::shared_ptr<const MenuBar> menus) { menus_ = std::move(menus); }
  void Origin(WindowOrigin origin) { origin_ = origin; }

  /// There is one thing more, or one less, that the window waits for.
  void BeginWait();
  void EndWait();

  /// Lets `handler` react to `event`, as a handler of this window. Once the window is closed it no longer runs, and the
  /// answer is the value-initialised one.
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
