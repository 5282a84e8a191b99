#include "panel/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace panel {
namespace {

// A kind of character: the range of its first and of its second byte, and how many bytes it has. All further bytes are
// in the range 0x80 to 0xbf. The narrower ranges leave out surrogates and what has a shorter form.
struct Kind {
  std::uint8_t first;
  std::uint8_t firstEnd;
  std::uint8_t second;
  std::uint8_t secondEnd;
  std::size_t length;
};
// clang-format off
constexpr std::array<Kind, 9> kinds{{
  {0x00, 0x7f, 0x00, 0x00, 1},
  {0xc2, 0xdf, 0x80, 0xbf, 2},
  {0xe0, 0xe0, 0xa0, 0xbf, 3},
  {0xe1, 0xec, 0x80, 0xbf, 3},
  {0xed, 0xed, 0x80, 0x9f, 3},
  {0xee, 0xef, 0x80, 0xbf, 3},
  {0xf0, 0xf0, 0x90, 0xbf, 4},
  {0xf1, 0xf3, 0x80, 0xbf, 4},
  {0xf4, 0xf4, 0x80, 0x8f, 4},
}};
// clang-format on

bool IsIn(char byte, std::uint8_t low, std::uint8_t high) {
  const auto value = static_cast<std::uint8_t>(byte);
  return value >= low && value <= high;
}

// The length of the character that the text starts with; 0 if it starts with none.
std::size_t LengthOfFirst(std::string_view text) {
  const auto* kind = std::find_if(kinds.begin(), kinds.end(),
                                  [&](const Kind& row) { return IsIn(text.front(), row.first, row.firstEnd); });
  if (kind == kinds.end() || text.size() < kind->length) return 0;
  if (kind->length > 1 && !IsIn(text[1], kind->second, kind->secondEnd)) return 0;
  for (std::size_t i = 2; i < kind->length; ++i) {
    if (!IsIn(text[i], 0x80, 0xbf)) return 0;
  }
  return kind->length;
}

}  // namespace

std::string RepairUtf8(std::string_view text) {
  std::string repaired;
  repaired.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = LengthOfFirst(text);
    if (length == 0) {
      repaired += "\xef\xbf\xbd";
    } else {
      repaired += text.substr(0, length);
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return repaired;
}

}  // namespace panel
