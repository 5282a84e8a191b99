#pragma once

#include "toolkit/FolderItem.h"

/// The user's own folders, as the desktop defines them.
namespace toolkit::SpecialFolder {

/// The folder for the data that programs store for the user.
[[nodiscard]] FolderItem ApplicationData();
[[nodiscard]] FolderItem Desktop();

}  // namespace toolkit::SpecialFolder
