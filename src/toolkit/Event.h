#pragma once

#include <functional>
#include <utility>

namespace toolkit {

/// Something that happens to a control, window or socket, and the one handler that reacts to it and answers. Without a
/// handler the answer is the value-initialised one: false, nullptr, 0.
///
/// The handler is copied before it runs, so it may replace itself or destroy the object that holds the event.
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

/// The usual kind, which needs no answer.
template <typename... Arguments>
using Event = Question<void, Arguments...>;

}  // namespace toolkit
