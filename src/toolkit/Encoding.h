#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace toolkit {

/// `bytes` in the character set of that name (IANA's or iconv's), converted to UTF-8. What does not convert becomes
/// U+FFFD. Nothing if the name is unknown.
[[nodiscard]] std::optional<std::string> ConvertToUTF8(std::string_view bytes, std::string_view characterSet);

}  // namespace toolkit
