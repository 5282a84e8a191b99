#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/Size.h"

namespace toolkit {

/// A decoded picture: its colours as 0xAARRGGBB, premultiplied, row by row from the top.
struct Pixels {
  toolkit::Size Size;
  std::vector<std::uint32_t> Colors;
};

}  // namespace toolkit
