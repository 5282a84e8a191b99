#pragma once

#include <string_view>
#include <vector>

#include "toolkit/Listbox.h"

namespace toolkit {

/// The rows of `list` that show `text` (UTF-8) in one of their columns, in their order. Case is ignored, by
/// Unicode's simple case folding. An empty text is in no row.
[[nodiscard]] std::vector<int> RowsContaining(const Listbox& list, std::string_view text);

}  // namespace toolkit
