#pragma once

#include <string>
#include <string_view>

namespace panel {

/// The text with each byte that is no part of a character in UTF-8 (RFC 3629) replaced by U+FFFD.
[[nodiscard]] std::string RepairUtf8(std::string_view text);

}  // namespace panel
