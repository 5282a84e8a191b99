#pragma once

#include <string_view>

#include <QString>

namespace toolkit::qt {

/// `text` (UTF-8) as one line to draw: tabs become blanks up to the next multiple of eight, and control characters,
/// including line breaks, become visible symbols ("␛", "␊"), so that none is interpreted.
[[nodiscard]] QString DisplayText(std::string_view text);

/// The same for the first `most` characters, with an ellipsis if there are more.
[[nodiscard]] QString DisplayText(std::string_view text, std::size_t most);

/// The same, limited to the length of a name or title.
[[nodiscard]] QString DisplayName(std::string_view text);

/// The first `count` characters of `text`.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace toolkit::qt
