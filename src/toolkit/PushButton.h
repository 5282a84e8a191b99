#pragma once

#include <string>

#include "toolkit/Control.h"

namespace toolkit {

/// Which key presses the button wherever the keyboard is in the window: Return for the default one, Escape for the one
/// that cancels. That one is pressed as well when the user closes the window by other means.
enum class ButtonRole { None, Default, Cancel };

/// A button with a caption, in which "&" marks the letter of the access key and "&&" stands for an ampersand.
class PushButton final : public ControlOf<PushButton> {
 public:
  PushButton() : ControlOf(FocusPolicy::Accepts) {}

  /// The user pressed the button.
  Event<> Action;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  PushButton& Caption(std::string caption) { return Set(caption_, std::move(caption)); }
  /// A further key that presses the button while it shows, as in "F5"; or empty.
  [[nodiscard]] const std::string& Key() const { return key_; }
  PushButton& Key(std::string key) { return Set(key_, std::move(key)); }
  [[nodiscard]] ButtonRole Role() const { return role_; }
  PushButton& Role(ButtonRole role) { return Set(role_, role); }

  using ControlOf::AccessibleName;
  /// The caption without its marks.
  [[nodiscard]] std::string AccessibleName() const override;

  /// Presses the button as the user would: does nothing while it is disabled or invisible.
  void Press() const;

 private:
  std::string caption_;
  std::string key_;
  ButtonRole role_ = ButtonRole::None;
};

}  // namespace toolkit
