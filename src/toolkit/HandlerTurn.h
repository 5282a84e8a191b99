#pragma once

#include <memory>

namespace toolkit {

class Window;

/// The time in which a handler of `window` runs, from its making to its end: the window stays alive, and dialogs belong
/// to it. A handler that ends by an exception leaves it so, for the dialog that tells the exception. Without a window
/// nothing changes.
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
