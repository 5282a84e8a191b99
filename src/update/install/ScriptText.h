#pragma once

#include <string>

#include "toolkit/FolderItem.h"

namespace Kaju {

/// What an install script has to know.
struct ScriptInput {
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

[[nodiscard]] std::string MacScript(const ScriptInput& input);
[[nodiscard]] std::string LinuxScript(const ScriptInput& input);
[[nodiscard]] std::string WindowsScript(const ScriptInput& input);

}  // namespace Kaju
