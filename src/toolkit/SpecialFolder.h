#pragma once

#include "toolkit/FolderItem.h"

/// The user's own folders, where the desktop keeps them.
namespace toolkit::SpecialFolder {

/// Where programs keep what they remember for the user.
[[nodiscard]] FolderItem ApplicationData();
[[nodiscard]] FolderItem Desktop();

}  // namespace toolkit::SpecialFolder
