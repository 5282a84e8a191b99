#include "toolkit/Platform.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "toolkit/Window.h"

namespace toolkit {
namespace {

Platform* current = nullptr;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): the one platform

}  // namespace

Platform::Platform() { current = this; }

Platform::~Platform() { current = nullptr; }

Platform& Platform::Current() {
  if (current == nullptr) {
    std::cerr << "A window, socket or message box was used before there was a platform.\n";
    std::abort();
  }
  return *current;
}

void Platform::Open(const std::shared_ptr<Window>& window) {
  if (std::find(windows_.begin(), windows_.end(), window) != windows_.end()) {
    BringToFront(*window);
    return;
  }
  windows_.push_back(window);
  Present(*window);
}

void Platform::Close(Window& window) {
  const auto place =
      std::find_if(windows_.begin(), windows_.end(), [&](const auto& open) { return open.get() == &window; });
  if (place == windows_.end()) return;
  const std::shared_ptr<Window> alive = *place;
  windows_.erase(place);
  Withdraw(window);
  if (windows_.empty()) Quit(EXIT_SUCCESS);
}

void Platform::Dispatch(const std::function<void()>& handler) {
  try {
    handler();
  } catch (const std::exception& exception) {
    MsgBox(exception.what());
  } catch (...) {
    MsgBox("Something went wrong that has no description.");
  }
}

void Platform::ForgetWindows() {
  for (const auto& window : windows_) Withdraw(*window);
  windows_.clear();
}

}  // namespace toolkit
