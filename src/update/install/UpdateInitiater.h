#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/FolderItem.h"
#include "update/install/ScriptText.h"

namespace Kaju {

/// A downloaded update that is installed when the program ends. The destructor starts a script that waits for the end
/// of the program, replaces it and starts the new one.
class UpdateInitiater {
 public:
  /// The unpacked replacement: on macOS the application bundle, elsewhere the folder with the new executable and its
  /// other files. Without it, nothing is installed.
  std::optional<toolkit::FolderItem> ReplacementAppFolder;
  /// The name of the new executable in that folder. Not used on macOS.
  std::string ReplacementExecutableName;

  UpdateInitiater() = default;
  UpdateInitiater(const UpdateInitiater&) = delete;
  UpdateInitiater& operator=(const UpdateInitiater&) = delete;
  /// Calls RunScript(). Failures are shown in a message box.
  virtual ~UpdateInitiater();

  /// Prevents the installation.
  virtual void Cancel();

  /// Checks, as far as possible, whether the script would succeed: whether the replacement exists with its executable,
  /// whether the disk has room for it, and where a script can be written and started. Returns the problem as a text for
  /// the user, empty if there is none. Runs the event loop meanwhile.
  [[nodiscard]] std::string WhatPreventsIt();

  /// Writes and starts the script of this platform, and runs the event loop for a second. Does nothing without a
  /// replacement. A toolkit::RuntimeException is shown in a message box; other exceptions are propagated. If the script
  /// does not start, the download is deleted.
  void RunScript();

  // For one platform each. The script waits for the end of the program while `pidFile` exists, and finally deletes
  // `tempFolder`. Return whether the script was started; throw a toolkit::RuntimeException if that fails.
  bool RunScriptMac(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile);
  bool RunScriptLinux(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile) const;
  bool RunScriptWindows(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile) const;

  /// Writes the script into `folder` and returns its file, or std::nullopt after a message box with the error. On
  /// Windows the extension of the name must be that of scripts.
  [[nodiscard]] static std::optional<toolkit::FolderItem> SaveScript(std::string_view script,
                                                                     const toolkit::FolderItem& folder,
                                                                     std::string_view name = "kaju_updater.sh");
  /// The program's version followed by "_64-bit" or "_32-bit".
  [[nodiscard]] static std::string GetAppVersionForScript();
  /// The names of the entries of `folder`, except the executable and ".DS_Store".
  [[nodiscard]] static std::vector<std::string> GetManifest(const toolkit::FolderItem& folder,
                                                            std::string_view exeName);
  /// Assignments to the elements of a bash array, one per line, from index 0; empty for no elements.
  [[nodiscard]] static std::string ArrayToShellScript(const std::vector<std::string>& arr, std::string_view name);
  /// `s` as one word of a shell, in single quotes.
  [[nodiscard]] static std::string ShellQuote(std::string_view s);
  /// The path of `item` as one word of a shell, without trailing slashes.
  [[nodiscard]] static std::string ShellPathQuote(const toolkit::FolderItem& item);

 private:
  [[nodiscard]] bool HasExecutable() const;
  /// Throws a toolkit::RuntimeException with a message for the user if no script can be written or started in a folder
  /// at `place`. Leaves no files.
  void RehearseAt(const toolkit::FolderItem& place) const;
  bool RunScriptOfPlatform(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile);
  [[nodiscard]] ScriptInput About(const toolkit::FolderItem& exe, const toolkit::FolderItem& tempFolder,
                                  const toolkit::FolderItem& pidFile) const;

  // Where RehearseAt() succeeded.
  std::optional<toolkit::FolderItem> place_;
};

}  // namespace Kaju
