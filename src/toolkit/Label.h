#pragma once

#include <string>

#include "toolkit/Control.h"

namespace toolkit {

enum class Alignment { Left, Center, Right };

enum class LabelFont { System, BoldSystem, BoldSmallSystem };

enum class LabelLines { One, Several };

/// The background of a label: the window's own colour, or a picture that the window draws, on which the text must stay
/// readable.
enum class LabelGround { Plain, Picture };

/// Plain text. A single line is elided where it is too long, several are wrapped.
class Label final : public ControlOf<Label> {
 public:
  Label() : ControlOf(FocusPolicy::Refuses) {}

  [[nodiscard]] const std::string& Text() const { return text_; }
  Label& Text(std::string text) { return Set(text_, std::move(text)); }

  [[nodiscard]] Alignment TextAlign() const { return alignment_; }
  Label& TextAlign(Alignment alignment) { return Set(alignment_, alignment); }
  [[nodiscard]] LabelFont Font() const { return font_; }
  Label& Font(LabelFont font) { return Set(font_, font); }
  [[nodiscard]] LabelLines Lines() const { return lines_; }
  Label& Lines(LabelLines lines) { return Set(lines_, lines); }
  [[nodiscard]] LabelGround Ground() const { return ground_; }
  Label& Ground(LabelGround ground) { return Set(ground_, ground); }

  using ControlOf::AccessibleName;
  [[nodiscard]] std::string AccessibleName() const override { return text_; }

 private:
  std::string text_;
  Alignment alignment_ = Alignment::Left;
  LabelFont font_ = LabelFont::System;
  LabelLines lines_ = LabelLines::One;
  LabelGround ground_ = LabelGround::Plain;
};

}  // namespace toolkit
