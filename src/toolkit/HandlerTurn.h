#pragma once

#include <memory>

namespace toolkit {

class Window;

/// Marks the time in which a handler of `window` runs: the window is kept alive, and dialogs belong to it. If the
/// handler throws, the mark stays, so that the message box for the exception belongs to the window as well. Does
/// nothing without a window.
class HandlerTurn {
 public:
  explicit HandlerTurn(std::shared_ptr<Window> window);
  HandlerTurn(const HandlerTurn&) = delete;
  HandlerTurn& operator=(const HandlerTurn&) = delete;
  ~HandlerTurn();

 private:
  std::shared_ptr<Window> window_;
  std::weak_ptr<Window> before_;
  int exceptions_;
};

}  // namespace toolkit
