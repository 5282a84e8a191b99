#pragma once

namespace toolkit {

/// A width and a height, in points or in pixels.
struct Size {
  int Width = 0;
  int Height = 0;

  friend bool operator==(const Size&, const Size&) = default;
};

}  // namespace toolkit
