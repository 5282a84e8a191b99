#pragma once

#include <string>

#include "toolkit/Control.h"

namespace toolkit {

/// A button with a caption.
class PushButton final : public ControlOf<PushButton> {
 public:
  PushButton() : ControlOf(FocusPolicy::Accepts) {}

  /// The user pressed the button.
  Event<> Action;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  PushButton& Caption(std::string caption);

  using ControlOf::AccessibleName;
  [[nodiscard]] std::string AccessibleName() const override { return caption_; }

  /// Presses the button as the user would: does nothing while it is disabled or invisible.
  void Press() const;

 private:
  std::string caption_;
};

}  // namespace toolkit
