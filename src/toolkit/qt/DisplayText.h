#pragma once

#include <string_view>

#include <QString>

namespace toolkit::qt {

/// `text` (UTF-8) as one line to be drawn: tabs become blanks up to the next multiple of eight, and control characters,
/// line breaks among them, become their visible pictures ("␛", "␊"), so that none is ever interpreted.
[[nodiscard]] QString DisplayText(std::string_view text);

/// As many bytes of `text` as hold `count` bytes or a little more, so that no character is cut.
[[nodiscard]] std::string_view WholeCharacters(std::string_view text, std::size_t start, std::size_t count);

}  // namespace toolkit::qt
