#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace toolkit::qt {

/// The program as it is started to decode one picture: this option, and how many pixels wide that may be. It shows
/// nothing. It reads the picture, or a data address (RFC 2397) with one, from a file that is its standard input. On
/// standard output it writes the picture's DecodedSize and its pixels, row by row in premultiplied ARGB of 32 bits; or
/// nothing if it cannot.
constexpr std::string_view decoderOption = "--decode-picture";

/// In pixels.
struct DecodedSize {
  std::int32_t Width = 0;
  std::int32_t Height = 0;

  /// Whether a picture of this size is not empty, and as small as a decoder must make it.
  [[nodiscard]] bool IsWithin(int mostWidth) const;
};

/// Does that and returns the status to exit with, if the program was started for it. To be called first in main, before
/// anything is opened that a picture must not reach.
[[nodiscard]] std::optional<int> DecodeIfAsked(int argumentCount, char** arguments);

}  // namespace toolkit::qt
