#pragma once

#include <string>
#include <string_view>

#include "toolkit/FolderItem.h"

namespace toolkit {

/// The bytes of `file`. Throws a RuntimeException that names the file if it cannot be read.
[[nodiscard]] std::string ReadFile(const FolderItem& file);

/// Makes `bytes` the content of `file`, which may be new: they are written to another file beside it, which then takes
/// its name, so that at every moment there is either the old content or the new one, whole. Links are followed. Throws
/// a RuntimeException that names the file if that fails; the old content stays then.
void ReplaceFile(const FolderItem& file, std::string_view bytes);

}  // namespace toolkit
