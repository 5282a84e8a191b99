#pragma once

#include <string_view>

#include <QString>

namespace toolkit::qt {

/// `text` (UTF-8) as one line to be drawn: tabs become blanks up to the next multiple of eight, and control characters,
/// line breaks among them, become their visible pictures ("␛", "␊"), so that none is ever interpreted.
[[nodiscard]] QString DisplayText(std::string_view text);

/// As DisplayText, but of a text of more than `most` characters only the first ones, with an ellipsis.
[[nodiscard]] QString DisplayText(std::string_view text, std::size_t most);

/// As DisplayText, but no longer than a name or a frame's title can be.
[[nodiscard]] QString DisplayName(std::string_view text);

/// The first `count` characters of `text`.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace toolkit::qt
