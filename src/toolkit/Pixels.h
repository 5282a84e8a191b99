#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/Size.h"

namespace toolkit {

/// A decoded picture: its colors as 0xAARRGGBB, each part premultiplied with the first, row by row from the top.
struct Pixels {
  toolkit::Size Size;
  std::vector<std::uint32_t> Colors;
};

}  // namespace toolkit
