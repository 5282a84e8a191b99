#include "servercontrol/LogCount.h"

#include <algorithm>

#include "toolkit/Text.h"

std::optional<std::int64_t> ParseLogCount(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  text = text.substr(0, text.find_last_not_of(blanks) + 1);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  return toolkit::ParseNumber<std::int64_t>(text);
}
