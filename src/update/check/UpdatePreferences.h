#pragma once

#include <string>
#include <vector>

#include "toolkit/FolderItem.h"

namespace Kaju {

/// The persistent state of the update checker: a file with one JSON object.
struct UpdatePreferences {
  /// The versions that the user skipped, in that order. The member "IgnoreVersionsPref".
  std::vector<std::string> IgnoreVersionsPref;

  friend bool operator==(const UpdatePreferences&, const UpdatePreferences&) = default;
};

/// Reads the preferences from `file`; missing ones, or all if there is no file, are empty. Throws a
/// toolkit::RuntimeException that names the file if it cannot be read or is malformed.
[[nodiscard]] UpdatePreferences LoadPreferences(const toolkit::FolderItem& file);

/// Replaces `file` atomically. Throws a toolkit::RuntimeException if it cannot be written; it is left unchanged then.
void SavePreferences(const toolkit::FolderItem& file, const UpdatePreferences& preferences);

}  // namespace Kaju
