#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Parses the number of log lines that a user typed: decimal digits with an optional sign, surrounded by optional
/// blanks. std::nullopt for any other text, and for a number that does not fit in 64 bits.
[[nodiscard]] std::optional<std::int64_t> ParseLogCount(std::string_view text);
