#include "toolkit/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <openssl/evp.h>

namespace toolkit {
namespace {

// The well-formed byte sequences by their first byte (RFC 3629, section 4). Only the second byte has its own range; all
// further ones are in 80..BF.
struct SequenceForm {
  unsigned char FirstLow, FirstHigh;
  unsigned char SecondLow, SecondHigh;
  std::size_t Length;
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

/// The length of the well-formed sequence at the start of `bytes`; 0 if there is none.
std::size_t SequenceLength(std::string_view bytes) {
  const auto byteAt = [bytes](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
  const auto form = std::find_if(sequenceForms.begin(), sequenceForms.end(), [&](const SequenceForm& candidate) {
    return Between(byteAt(0), candidate.FirstLow, candidate.FirstHigh);
  });
  if (form == sequenceForms.end() || form->Length > bytes.size()) return 0;
  if (form->Length > 1 && !Between(byteAt(1), form->SecondLow, form->SecondHigh)) return 0;
  for (std::size_t index = 2; index < form->Length; ++index) {
    if (!Between(byteAt(index), 0x80, 0xBF)) return 0;
  }
  return form->Length;
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

std::string RepairUTF8(std::string_view bytes) {
  std::string repaired;
  repaired.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t length = SequenceLength(bytes);
    repaired += length == 0 ? replacementCharacter : bytes.substr(0, length);
    bytes.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return repaired;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerCaseLetter);
  return lower;
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
  return EqualIgnoringCase(text.substr(0, prefix.size()), prefix);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char one, char other) { return LowerCaseLetter(one) == LowerCaseLetter(other); });
}

std::string_view Trim(std::string_view text) {
  const auto isBlank = [](char letter) { return static_cast<unsigned char>(letter) <= ' '; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

namespace {

/// The length of the control sequence at the start of `text`, 0 if there is none.
std::size_t LengthOfControlSequence(std::string_view text) {
  if (!text.starts_with("\x1B[")) return 0;
  std::size_t end = 2;
  const auto pass = [&](char first, char last) {
    while (end < text.size() && text[end] >= first && text[end] <= last) ++end;
  };
  pass('0', '?');
  pass(' ', '/');
  return end < text.size() && text[end] >= '@' && text[end] <= '~' ? end + 1 : 0;
}

}  // namespace

std::string WithoutColorCodes(std::string_view text) {
  std::string plain;
  for (std::size_t escape = text.find('\x1B'); escape != std::string_view::npos; escape = text.find('\x1B')) {
    const std::size_t length = LengthOfControlSequence(text.substr(escape));
    plain.append(text.substr(0, length == 0 ? escape + 1 : escape));
    text.remove_prefix(escape + std::max<std::size_t>(length, 1));
  }
  return plain.append(text);
}

std::string ReplaceAll(std::string_view text, std::string_view part, std::string_view replacement) {
  std::string replaced;
  for (std::size_t found = text.find(part); !part.empty() && found != std::string_view::npos; found = text.find(part)) {
    replaced.append(text.substr(0, found)).append(replacement);
    text.remove_prefix(found + part.size());
  }
  return replaced.append(text);
}

std::string QuoteForShell(std::string_view text) {
  return std::string("'").append(ReplaceAll(text, "'", "'\\''")).append("'");
}

std::string DecodeURLComponent(std::string_view text) {
  std::string decoded;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const auto byte = text[place] == '%' ? DecodeHex(text.substr(place + 1, 2)) : std::nullopt;
    if (byte && byte->size() == 1) {
      decoded += *byte;
      place += 2;
    } else {
      decoded += text[place];
    }
  }
  return decoded;
}

std::string EncodeURLPath(std::string_view path) {
  constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  std::string encoded;
  for (const char& letter : path) {
    if (plain.find(letter) != std::string_view::npos) {
      encoded += letter;
    } else {
      encoded.append("%").append(EncodeHex({&letter, 1}));
    }
  }
  return encoded;
}

std::optional<std::string> DecodeHex(std::string_view text) {
  std::string bytes;
  if (text.size() % 2 != 0) return std::nullopt;
  bytes.reserve(text.size() / 2);
  for (; !text.empty(); text.remove_prefix(2)) {
    const auto byte = ParseNumber<unsigned char>(text.substr(0, 2), 16);
    if (!byte) return std::nullopt;
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

std::string EncodeHex(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char letter : bytes) {
    const auto byte = static_cast<unsigned char>(letter);
    text += digits[byte / 16];
    text += digits[byte % 16];
  }
  return text;
}

std::string EncodeBase64(std::string_view bytes) {
  std::string text(4 * ((bytes.size() + 2) / 3) + 1, '\0');  // OpenSSL appends a NUL
  const int length =
      EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()),
                      reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace toolkit
