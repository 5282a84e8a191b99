#pragma once

#include "toolkit/Control.h"

namespace toolkit {

/// A wheel that turns while it is visible, to show that something is in progress.
class ProgressWheel final : public ControlOf<ProgressWheel> {
 public:
  ProgressWheel() : ControlOf(FocusPolicy::Refuses) {}
};

}  // namespace toolkit
