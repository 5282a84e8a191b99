#pragma once

#include <string>

#include "toolkit/Control.h"

namespace toolkit {

enum class Alignment { Left, Center, Right };

/// A line of plain text that the user reads.
class Label final : public ControlOf<Label> {
 public:
  Label() : ControlOf(FocusPolicy::Refuses) {}

  [[nodiscard]] const std::string& Text() const { return text_; }
  Label& Text(std::string text);

  [[nodiscard]] Alignment TextAlign() const { return alignment_; }
  Label& TextAlign(Alignment alignment);

  using ControlOf::AccessibleName;
  [[nodiscard]] std::string AccessibleName() const override { return text_; }

 private:
  std::string text_;
  Alignment alignment_ = Alignment::Left;
};

}  // namespace toolkit
