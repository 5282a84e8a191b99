#pragma once

#include <functional>
#include <utility>

namespace toolkit {

/// Something that happens to a control, window or socket, and the one handler that reacts to it.
///
/// Raising an event that has no handler does nothing. The handler is copied before it runs, so it may
/// replace itself or destroy the object that holds the event.
template <typename... Arguments>
class Event {
 public:
  using Handler = std::function<void(Arguments...)>;

  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }

  void operator()(Arguments... arguments) const {
    if (const Handler handler = handler_) handler(arguments...);
  }

 private:
  Handler handler_;
};

}  // namespace toolkit
