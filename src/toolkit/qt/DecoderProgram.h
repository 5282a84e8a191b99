#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace toolkit::qt {

/// The option that starts the program as a decoder of one picture, followed by the greatest width in pixels. It opens
/// no window. It reads the picture, or a data address (RFC 2397) with one, from standard input, which must be a file.
/// It writes a DecodedSize and the pixels to standard output, row by row in premultiplied ARGB of 32 bits; nothing if
/// the picture cannot be decoded.
constexpr std::string_view decoderOption = "--decode-picture";

/// In pixels.
struct DecodedSize {
  std::int32_t Width = 0;
  std::int32_t Height = 0;

  /// Whether the size is one that a decoder may write: not empty, and within the limits.
  [[nodiscard]] bool IsWithin(int mostWidth) const;
};

/// If the program was started with that option, decodes and returns the exit status. Call it first in main, before
/// opening anything that an untrusted picture must not reach.
[[nodiscard]] std::optional<int> DecodeIfAsked(int argumentCount, char** arguments);

}  // namespace toolkit::qt
