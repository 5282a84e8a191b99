#pragma once

#include <string_view>

#include "toolkit/FolderItem.h"

namespace Kaju {

/// The folder, in the temporary one of a download, in which the archive is unpacked.
inline constexpr std::string_view unpackedFolder = "decompressed";

/// Deletes the temporary folder of a download. `replacement` is what was unpacked there; nothing is deleted if it is
/// anywhere else.
void RemoveDownload(const toolkit::FolderItem& replacement);

/// Deletes what failed install scripts of this user left behind.
void RemoveFailedUpdates();

}  // namespace Kaju
