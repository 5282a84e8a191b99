#include "update/install/Leftovers.h"

#include <algorithm>

#include "update/check/FileHelpers.h"

using toolkit::FolderItem;

namespace Kaju {

void RemoveDownload(const FolderItem& replacement) {
  const std::filesystem::path download = replacement.Parent().Parent().Path();
  if (replacement.Parent().Name() != unpackedFolder) return;
  for (const FolderItem& folder : toolkit::TemporaryFolders()) {
    if (folder.Path() == download) DeleteWholly(folder);
  }
}

// A failed script leaves a link to its replacement in its folder.
void RemoveFailedUpdates() {
  for (const FolderItem& folder : toolkit::TemporaryFolders()) {
    std::error_code error;
    const auto replacement = std::filesystem::read_symlink(folder.Child("failed").Path(), error);
    if (error) continue;
    RemoveDownload(FolderItem(replacement));
    DeleteWholly(folder);
  }
}

}  // namespace Kaju
