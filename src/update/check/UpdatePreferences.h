#pragma once

#include <string>
#include <vector>

#include "toolkit/FolderItem.h"

namespace Kaju {

/// What the update checker remembers: a file of one JSON object.
struct UpdatePreferences {
  /// The versions that the user skipped, in the order in which they were skipped. The member "IgnoreVersionsPref".
  std::vector<std::string> IgnoreVersionsPref;

  friend bool operator==(const UpdatePreferences&, const UpdatePreferences&) = default;
};

/// The preferences in `file`; those that it lacks, or all if there is no file, are empty. Throws a
/// toolkit::RuntimeException that names the file if it cannot be read or does not hold them.
[[nodiscard]] UpdatePreferences LoadPreferences(const toolkit::FolderItem& file);

/// Gives preferences that cannot be read, or whatever else has their name, another name that nothing has, and returns
/// them under it. Throws a toolkit::RuntimeException if that fails.
toolkit::FolderItem SetPreferencesAside(const toolkit::FolderItem& file);

/// Replaces `file` whole. Throws a toolkit::RuntimeException if it cannot be written; it is unchanged then.
void SavePreferences(const toolkit::FolderItem& file, const UpdatePreferences& preferences);

}  // namespace Kaju
