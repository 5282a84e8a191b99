#pragma once

#include <string>

#include "toolkit/FolderItem.h"

namespace Kaju {

/// What an install script has to know.
struct Installation {
  /// What is replaced: on macOS the application bundle, elsewhere the executable.
  toolkit::FolderItem Executable;
  std::string Version;
  /// As in UpdateInitiater.
  toolkit::FolderItem Replacement;
  std::string ReplacementExecutable;
  toolkit::FolderItem TempFolder;
  toolkit::FolderItem PidFile;
};

// The script of each platform, made of its template.

[[nodiscard]] std::string MacScript(const Installation& installation);
[[nodiscard]] std::string LinuxScript(const Installation& installation);
[[nodiscard]] std::string WindowsScript(const Installation& installation);

}  // namespace Kaju
