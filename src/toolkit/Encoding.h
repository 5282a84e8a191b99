#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace toolkit {

/// Converts `bytes` from the character set with that name (IANA's or iconv's) to UTF-8. What cannot be converted
/// becomes U+FFFD. std::nullopt if the name is unknown.
[[nodiscard]] std::optional<std::string> ConvertToUTF8(std::string_view bytes, std::string_view characterSet);

}  // namespace toolkit
