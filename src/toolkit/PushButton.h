#pragma once

#include <string>

#include "toolkit/Control.h"

namespace toolkit {

/// The key that presses the button, regardless of the focus: Return for the default button, Escape for the cancel
/// button. The latter is also pressed when the user closes the window in another way.
enum class ButtonRole { None, Default, Cancel };

/// A button with a caption, in which "&" marks the letter of the access key and "&&" stands for an ampersand.
class PushButton final : public ControlOf<PushButton> {
 public:
  PushButton() : ControlOf(FocusPolicy::Accepts) {}

  Event<> Action;

  [[nodiscard]] const std::string& Caption() const { return caption_; }
  PushButton& Caption(std::string caption) { return Set(caption_, std::move(caption)); }
  /// An additional shortcut while the button is on the screen, as in "F5"; or empty.
  [[nodiscard]] const std::string& Key() const { return key_; }
  PushButton& Key(std::string key) { return Set(key_, std::move(key)); }
  [[nodiscard]] ButtonRole Role() const { return role_; }
  PushButton& Role(ButtonRole role) { return Set(role_, role); }

  using ControlOf::AccessibleName;
  /// The caption without access key markers.
  [[nodiscard]] std::string AccessibleName() const override;

  /// Presses the button as the user would. Ignored while it is disabled or invisible.
  void Press() const;

 private:
  std::string caption_;
  std::string key_;
  ButtonRole role_ = ButtonRole::None;
};

}  // namespace toolkit
