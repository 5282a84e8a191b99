#pragma once

#include <string>

#include "toolkit/FolderItem.h"

namespace Kaju {

/// The input of an install script.
struct ScriptInput {
  /// What is replaced: on macOS the application bundle, elsewhere the executable.
  toolkit::FolderItem Executable;
  std::string Version;
  /// See UpdateInitiater.
  toolkit::FolderItem Replacement;
  std::string ReplacementExecutable;
  toolkit::FolderItem TempFolder;
  toolkit::FolderItem PidFile;
};

// Each fills the template of one platform.

[[nodiscard]] std::string MacScript(const ScriptInput& input);
[[nodiscard]] std::string LinuxScript(const ScriptInput& input);
[[nodiscard]] std::string WindowsScript(const ScriptInput& input);

}  // namespace Kaju
