#pragma once

#include "toolkit/FolderItem.h"

namespace Kaju {

/// Removes the temporary folder of a download with all that is in it. `replacement` is what was unpacked there; nothing
/// happens if it lies anywhere else.
void RemoveDownload(const toolkit::FolderItem& replacement);

/// Removes what install scripts of this user left that could not do their work.
void RemoveFailedUpdates();

}  // namespace Kaju
