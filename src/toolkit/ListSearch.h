#pragma once

#include <string_view>
#include <vector>

#include "toolkit/Listbox.h"

namespace toolkit {

/// The rows of `list` that show `text` (UTF-8) in one of their columns, in ascending order. Case-insensitive, by
/// Unicode's simple case folding. No row for an empty text.
[[nodiscard]] std::vector<int> RowsContaining(const Listbox& list, std::string_view text);

}  // namespace toolkit
