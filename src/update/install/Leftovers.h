#pragma once

#include "toolkit/FolderItem.h"

namespace Kaju {

/// Deletes the temporary folder of a download. `replacement` is what was unpacked there; nothing is deleted if it is
/// anywhere else.
void RemoveDownload(const toolkit::FolderItem& replacement);

/// Deletes what failed install scripts of this user left behind.
void RemoveFailedUpdates();

}  // namespace Kaju
