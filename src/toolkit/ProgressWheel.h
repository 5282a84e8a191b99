#pragma once

#include "toolkit/Control.h"

namespace toolkit {

/// A wheel that turns for as long as it is visible, to tell that something is under way.
class ProgressWheel final : public ControlOf<ProgressWheel> {
 public:
  ProgressWheel() : ControlOf(FocusPolicy::Refuses) {}
};

}  // namespace toolkit
