#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// The number of log lines that a user typed: decimal digits with an optional sign in front and any blanks around.
/// Nothing for any other text, and for a number that does not fit 64 bits.
[[nodiscard]] std::optional<std::int64_t> ParseLogCount(std::string_view text);
