#include "toolkit/HandlerTurn.h"

#include <exception>
#include <utility>

#include "toolkit/Platform.h"
#include "toolkit/Window.h"

namespace toolkit {

HandlerTurn::HandlerTurn(std::shared_ptr<Window> window)
    : window_(std::move(window)), exceptions_(std::uncaught_exceptions()) {
  if (window_) before_ = Platform::Current().SetAsker(window_);
}

HandlerTurn::~HandlerTurn() {
  if (window_ && std::uncaught_exceptions() == exceptions_) Platform::Current().SetAsker(before_);
}

}  // namespace toolkit
