#pragma once

#include <functional>
#include <utility>

namespace toolkit {

/// An event of a control, window or socket with one handler, whose result is returned to the one who raises it. Without
/// a handler the result is value-initialised: false, nullptr, 0.
///
/// The handler is copied before it is called, so it may replace itself or destroy the object that holds the event.
template <typename Answer, typename... Arguments>
class Question {
 public:
  using Handler = std::function<Answer(Arguments...)>;

  Question& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }

  Answer operator()(Arguments... arguments) const {
    const Handler handler = handler_;
    return handler ? handler(arguments...) : Answer();
  }

 private:
  Handler handler_;
};

/// An event whose handler returns nothing.
template <typename... Arguments>
using Event = Question<void, Arguments...>;

}  // namespace toolkit
