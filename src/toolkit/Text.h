#pragma once

#include <string>
#include <string_view>

namespace toolkit {

/// Whether `bytes` are well-formed UTF-8 (RFC 3629): no overlong form, no surrogate, nothing cut off.
[[nodiscard]] bool IsUTF8(std::string_view bytes);

/// `text` with the letters A to Z made small; every other character stays, whatever the user's locale.
[[nodiscard]] std::string LowerCase(std::string_view text);

/// Whether `text` begins with `prefix`, the letters A to Z in either case.
[[nodiscard]] bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix);

}  // namespace toolkit
