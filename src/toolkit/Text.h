#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace toolkit {

/// Whether `bytes` are well-formed UTF-8 (RFC 3629): no overlong form, no surrogate, no truncated sequence.
[[nodiscard]] bool IsUTF8(std::string_view bytes);

/// U+FFFD in UTF-8.
inline constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// `bytes` with each byte that is not part of a UTF-8 sequence replaced by U+FFFD.
[[nodiscard]] std::string RepairUTF8(std::string_view bytes);

/// `text` with the letters A to Z in lower case, independent of the locale.
[[nodiscard]] std::string LowerCase(std::string_view text);

/// Whether `text` begins with `prefix`, ignoring the case of the letters A to Z.
[[nodiscard]] bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix);

/// Whether the texts are equal, ignoring the case of the letters A to Z.
[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// `text` without leading and trailing blanks, tabs, line breaks and other control characters.
[[nodiscard]] std::string_view Trim(std::string_view text);

/// The whole number that `text` consists of: digits, and for a signed type an optional "-". std::nullopt for any other
/// text, and for a number that does not fit.
template <std::integral Number>
[[nodiscard]] std::optional<Number> ParseNumber(std::string_view text, int base = 10) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number, base);
  return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

/// `text` without the control sequences (ECMA-48) for colours in a terminal.
[[nodiscard]] std::string WithoutColorCodes(std::string_view text);

/// `text` with every `part` replaced by `replacement`, from left to right; replacements are not searched again.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view part, std::string_view replacement);

/// `text` as one word of a POSIX shell's command line: in single quotes, each quote inside written as '\''.
[[nodiscard]] std::string QuoteForShell(std::string_view text);

/// `text` with each "%" and two hexadecimal digits replaced by the byte that they encode (RFC 3986). Any other "%" is
/// kept.
[[nodiscard]] std::string DecodeURLComponent(std::string_view text);

/// `path` for a URL: each byte but "/", letters, digits and "-._~" is percent-encoded.
[[nodiscard]] std::string EncodeURLPath(std::string_view path);

/// Decodes hexadecimal text, two digits per byte; std::nullopt for anything else.
[[nodiscard]] std::optional<std::string> DecodeHex(std::string_view text);
/// `bytes` as lower-case hexadecimal text, two digits per byte.
[[nodiscard]] std::string EncodeHex(std::string_view bytes);
/// `bytes` in Base64 (RFC 4648, section 4).
[[nodiscard]] std::string EncodeBase64(std::string_view bytes);

}  // namespace toolkit
