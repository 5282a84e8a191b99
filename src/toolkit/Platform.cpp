#include "toolkit/Platform.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <utility>

#include "toolkit/Window.h"

namespace toolkit {
namespace {

Platform* current = nullptr;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): the one platform

/// The place of `window` among `windows`; their end if it is none of them.
auto Find(std::vector<std::shared_ptr<Window>>& windows, const Window& window) {
  return std::ranges::find_if(windows, [&](const auto& open) { return open.get() == &window; });
}

}  // namespace

Platform::Platform(ProgramFacts program) : program_(std::move(program)) { current = this; }

Platform::~Platform() { current = nullptr; }

Platform& Platform::Current() {
  if (current == nullptr) {
    std::cerr << "A window, socket or message box was used before there was a platform.\n";
    std::abort();
  }
  return *current;
}

void Platform::Open(const std::shared_ptr<Window>& window) {
  const bool isOpen = Find(windows_, *window) != windows_.end();
  if (!isOpen) windows_.push_back(window);
  TellActivated(*window);
  if (isOpen) {
    BringToFront(*window);
  } else {
    Present(*window);
  }
}

void Platform::Close(Window& window) {
  const auto place = Find(windows_, window);
  if (place == windows_.end()) return;
  const std::shared_ptr<Window> alive = *place;
  windows_.erase(place);
  Withdraw(window);
  if (windows_.empty() && !closesAll_) Quit(EXIT_SUCCESS);
}

void Platform::CloseWindows() {
  closesAll_ = true;
  while (!windows_.empty()) {
    const std::shared_ptr<Window> last = windows_.back();
    Dispatch([&] { last->Close(); });
  }
  closesAll_ = false;
}

void Platform::EndSession() {
  sessionEnds_ = true;
  Quit(EXIT_SUCCESS);
  auto windows = windows_;
  std::ranges::reverse(windows);
  for (const auto& window : windows) {
    Dispatch([&] { window->CloseAsUser(); });
    Dispatch([&] { window->Close(); });
  }
  sessionEnds_ = false;
}

void Platform::TellActivated(const Window& window) {
  const auto place = Find(windows_, window);
  if (place != windows_.end()) std::rotate(place, place + 1, windows_.end());
}

void Platform::Dispatch(const std::function<void()>& handler) {
  const std::weak_ptr<Window> asker = asker_;
  try {
    handler();
  } catch (const std::exception& exception) {
    MsgBox(exception.what());
  } catch (...) {
    MsgBox("Something went wrong that has no description.");
  }
  asker_ = asker;
}

void Platform::WhenFree(std::function<void()> handler) {
  if (WaitsForUser() || HasWaitingEvents()) {
    waitingEvents_.push_back(std::move(handler));
  } else {
    Dispatch(handler);
  }
}

void Platform::RunNextEvent() {
  if (WaitsForUser() || !HasWaitingEvents()) return;
  const auto handler = std::move(waitingEvents_.front());
  waitingEvents_.pop_front();
  if (HasWaitingEvents()) RunNextEventLater();  // this handler may wait for the next event
  Dispatch(handler);
}

bool Platform::WaitsForUser() { return current != nullptr && current->dialogs_ > 0 && !current->sessionEnds_; }

DialogButton Platform::ShowDialog(const MessageDialog& dialog) {
  if (sessionEnds_) return DialogButton::Cancel;
  if (dialogs_++ == 0) dialogSince_ = Uptime();
  const std::shared_ptr<Window> owner = asker_.lock();
  const DialogButton pressed = AskUser(dialog, owner.get());
  if (--dialogs_ == 0) dialogTime_ += Uptime() - dialogSince_;
  if (HasWaitingEvents()) RunNextEventLater();
  return pressed;
}

std::chrono::milliseconds Platform::CountedTime() const {
  return (dialogs_ > 0 ? dialogSince_ : Uptime()) - dialogTime_;
}

}  // namespace toolkit
