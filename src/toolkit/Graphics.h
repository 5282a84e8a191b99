#pragma once

#include <cstdint>

#include "toolkit/Control.h"
#include "toolkit/Picture.h"

namespace toolkit {

/// A colour as 0xRRGGBB; 0 is black.
using Color = std::uint32_t;

/// A surface to draw on, valid during the event that provides it. Lengths are in points.
class Graphics {
 public:
  Graphics() = default;
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;
  virtual ~Graphics() = default;

  /// The thickness of lines, horizontally and vertically, and their colour.
  int PenWidth = 1;
  int PenHeight = 1;
  Color ForeColor = 0;

  [[nodiscard]] virtual int Width() const = 0;
  [[nodiscard]] virtual int Height() const = 0;
  /// Draws the whole picture, scaled to fill `destination`.
  virtual void DrawPicture(const std::shared_ptr<const Picture>& picture, Rect destination) = 0;
  /// Draws the outline of a rectangle, inside `place`.
  virtual void DrawRect(Rect place) = 0;
};

}  // namespace toolkit
