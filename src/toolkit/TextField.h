#pragma once

#include <string>

#include "toolkit/Control.h"

namespace toolkit {

enum class Masking { None, Password };

/// A field for one line of text.
class TextField final : public ControlOf<TextField> {
 public:
  TextField() : ControlOf(FocusPolicy::Accepts) {}

  Event<> Enter;

  [[nodiscard]] const std::string& Text() const { return text_; }
  TextField& Text(std::string text) { return Set(text_, std::move(text)); }

  /// The placeholder that is shown while the field is empty.
  [[nodiscard]] const std::string& CueText() const { return cueText_; }
  TextField& CueText(std::string cueText) { return Set(cueText_, std::move(cueText)); }

  /// A masked field shows dots, and its text cannot be copied.
  [[nodiscard]] Masking Masked() const { return masking_; }
  TextField& Masked(Masking masking) { return Set(masking_, masking); }

  using ControlOf::AccessibleName;
  [[nodiscard]] std::string AccessibleName() const override { return cueText_; }

  /// Replaces the text as the user would. Ignored while the field is disabled or invisible.
  void Type(std::string text);
  /// Presses Enter in the field as the user would. Ignored while the field is disabled or invisible.
  void PressEnter() const;

 private:
  std::string text_;
  std::string cueText_;
  Masking masking_ = Masking::None;
};

}  // namespace toolkit
