#pragma once

#include <memory>

#include "toolkit/Control.h"
#include "toolkit/Picture.h"

namespace toolkit {

/// An area that shows a picture.
class Canvas final : public ControlOf<Canvas> {
 public:
  Canvas() : ControlOf(FocusPolicy::Refuses) {}

  /// The picture drawn from the top left corner, or nullptr.
  [[nodiscard]] const std::shared_ptr<const Picture>& Backdrop() const { return backdrop_; }
  Canvas& Backdrop(std::shared_ptr<const Picture> picture) { return Set(backdrop_, std::move(picture)); }

 private:
  std::shared_ptr<const Picture> backdrop_;
};

}  // namespace toolkit
