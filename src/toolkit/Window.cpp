#include "toolkit/Window.h"

#include <algorithm>

#include "toolkit/Platform.h"

namespace toolkit {
namespace {

/// Where a control starts along one axis, and its extent.
struct Span {
  int Start;
  int Extent;
};

/// The span of a control after the window has grown by `growth`.
Span Follow(Span designed, int growth, bool lockedToStart, bool lockedToEnd) {
  if (!lockedToEnd) return designed;
  if (!lockedToStart) return {.Start = designed.Start + growth, .Extent = designed.Extent};
  return {.Start = designed.Start, .Extent = std::max(designed.Extent + growth, 0)};
}

}  // namespace

Window::Window(std::string title, Size size, Size minimum, Size maximum, WindowFrame frame)
    : title_(std::move(title)), designed_(size), size_(size), minimum_(minimum), maximum_(maximum), frame_(frame) {}

Rect Window::PlaceOf(const Control& control) const {
  const Rect frame = control.Frame();
  const Locks locks = control.LockedTo();
  const Span across = Follow({frame.Left, frame.Width}, size_.Width - designed_.Width, locks.Left, locks.Right);
  const Span down = Follow({frame.Top, frame.Height}, size_.Height - designed_.Height, locks.Top, locks.Bottom);
  return {.Left = across.Start, .Top = down.Start, .Width = across.Extent, .Height = down.Extent};
}

void Window::Subject(std::string subject) {
  subject_ = std::move(subject);
  Invalidate();
}

const PushButton* Window::ButtonOf(ButtonRole role) const {
  for (const Control* control : controls_) {
    const auto* button = dynamic_cast<const PushButton*>(control);
    if (button != nullptr && button->Role() == role && button->CanBeUsed()) return button;
  }
  return nullptr;
}

void Window::Show() {
  closed_ = false;
  Platform::Current().Open(shared_from_this());
}

void Window::TellPainted() {
  if (!std::exchange(opened_, true)) Open();
}

void Window::Close() {
  const std::shared_ptr<Window> alive = weak_from_this().lock();
  if (std::exchange(closed_, true)) return;
  Platform::Current().Close(*this);
  Event_Close();
}

void Window::CloseAsUser() {
  if (Platform::WaitsForUser()) return;
  if (const PushButton* button = ButtonOf(ButtonRole::Cancel)) {
    button->Press();
  } else {
    Close();
  }
}

void Window::Invalidate() const {
  if (view_ != nullptr) view_->Refresh();
}

void Window::BeginWait() {
  if (waits_++ == 0 && view_ != nullptr) view_->RefreshBusy();
}

void Window::EndWait() {
  if (--waits_ == 0 && view_ != nullptr) view_->RefreshBusy();
}

void Window::Resize(Size size) {
  size_ = {.Width = std::clamp(size.Width, minimum_.Width, maximum_.Width),
           .Height = std::clamp(size.Height, minimum_.Height, maximum_.Height)};
}

void Window::OpenControls() {
  for (const Control* control : controls_) control->Open();
}

}  // namespace toolkit
