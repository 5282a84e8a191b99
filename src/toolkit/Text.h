#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace toolkit {

/// Whether `bytes` are well-formed UTF-8 (RFC 3629): no overlong form, no surrogate, nothing cut off.
[[nodiscard]] bool IsUTF8(std::string_view bytes);

/// U+FFFD, which stands for what is no character.
inline constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// `bytes` with each byte that is no part of a character in UTF-8 replaced by U+FFFD.
[[nodiscard]] std::string RepairUTF8(std::string_view bytes);

/// `text` with the letters A to Z made small; every other character stays, whatever the user's locale.
[[nodiscard]] std::string LowerCase(std::string_view text);

/// Whether `text` begins with `prefix`, the letters A to Z in either case.
[[nodiscard]] bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix);

/// Whether the texts are the same, the letters A to Z in either case.
[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// `text` without the blanks, tabs, line breaks and other control characters at its ends.
[[nodiscard]] std::string_view Trim(std::string_view text);

/// The number that `text` consists of: digits, for a signed type with an optional "-" in front. Nothing for any other
/// text, and for a number that does not fit.
template <std::integral Number>
[[nodiscard]] std::optional<Number> ParseNumber(std::string_view text, int base = 10) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number, base);
  return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

/// `text` without the control sequences (ECMA-48) by which programs colour what they write to a terminal.
[[nodiscard]] std::string WithoutColorCodes(std::string_view text);

/// `text` with every `part` replaced by `replacement`, from left to right; what was put in is not looked at again.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view part, std::string_view replacement);

/// `text` as one word of a POSIX shell's command line: in single quotes, each quote in it written as '\''.
[[nodiscard]] std::string QuoteForShell(std::string_view text);

/// `text` with each "%" and two hexadecimal digits turned into the byte they stand for (RFC 3986). A "%" without them
/// stays as it is.
[[nodiscard]] std::string DecodeURLComponent(std::string_view text);

/// `path` for a URL: each byte but "/", letters, digits and "-._~" turned into a "%" and two hexadecimal digits.
[[nodiscard]] std::string EncodeURLPath(std::string_view path);

/// The bytes that `text` stands for, two hexadecimal digits a byte; nothing if it holds anything else.
[[nodiscard]] std::optional<std::string> DecodeHex(std::string_view text);
/// `bytes` as hexadecimal text in small letters, two digits a byte.
[[nodiscard]] std::string EncodeHex(std::string_view bytes);
/// `bytes` in Base64 (RFC 4648, section 4).
[[nodiscard]] std::string EncodeBase64(std::string_view bytes);

}  // namespace toolkit
