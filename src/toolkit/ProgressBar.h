#pragma once

#include "toolkit/Control.h"

namespace toolkit {

/// A progress bar. With a Maximum of 0 or below it is indeterminate: it moves.
class ProgressBar final : public ControlOf<ProgressBar> {
 public:
  ProgressBar() : ControlOf(FocusPolicy::Refuses) {}

  [[nodiscard]] int Maximum() const { return maximum_; }
  ProgressBar& Maximum(int maximum) { return Set(maximum_, maximum); }
  /// 0 for the empty bar, Maximum for the full one.
  [[nodiscard]] int Value() const { return value_; }
  ProgressBar& Value(int value) { return Set(value_, value); }

 private:
  int maximum_ = 0;
  int value_ = 0;
};

}  // namespace toolkit
