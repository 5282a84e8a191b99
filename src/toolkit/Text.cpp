#include "toolkit/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace toolkit {
namespace {

// The well-formed byte sequences by their first byte (RFC 3629, section 4). Only the second byte has a
// range of its own; any further one lies in 80..BF.
struct SequenceForm {
  unsigned char firstLow, firstHigh;
  unsigned char secondLow, secondHigh;
  std::size_t length;
};

constexpr std::array<SequenceForm, 9> sequenceForms{{
    {0x00, 0x7F, 0x00, 0x00, 1},
    {0xC2, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},
}};

constexpr bool Between(unsigned char byte, unsigned char low, unsigned char high) {
  return byte >= low && byte <= high;
}

/// The length of the well-formed sequence that `bytes` begin with; 0 if they begin with none.
std::size_t SequenceLength(std::string_view bytes) {
  const auto byteAt = [bytes](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
  const auto form = std::find_if(sequenceForms.begin(), sequenceForms.end(), [&](const SequenceForm& candidate) {
    return Between(byteAt(0), candidate.firstLow, candidate.firstHigh);
  });
  if (form == sequenceForms.end() || form->length > bytes.size()) return 0;
  if (form->length > 1 && !Between(byteAt(1), form->secondLow, form->secondHigh)) return 0;
  for (std::size_t index = 2; index < form->length; ++index) {
    if (!Between(byteAt(index), 0x80, 0xBF)) return 0;
  }
  return form->length;
}

constexpr char LowerCaseLetter(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

bool IsUTF8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = SequenceLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerCaseLetter);
  return lower;
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), text.begin(), [](char a, char b) {
           return LowerCaseLetter(a) == LowerCaseLetter(b);
         });
}

}  // namespace toolkit
