#pragma once

#include <string>
#include <string_view>

#include "toolkit/FolderItem.h"

namespace toolkit {

/// The bytes of `file`. Throws a RuntimeException that names the file if it cannot be read.
[[nodiscard]] std::string ReadFile(const FolderItem& file);

/// Replaces the content of `file`, which may not exist yet, atomically: a temporary file beside it is written and
/// renamed. A link is followed. Throws a RuntimeException that names the file if that fails; the old content is kept
/// then.
void ReplaceFile(const FolderItem& file, std::string_view bytes);

/// Renames a file whose content is of no use to an unused name, and returns it under that name. Throws a
/// RuntimeException if that fails.
FolderItem SetAside(const FolderItem& file);

}  // namespace toolkit
