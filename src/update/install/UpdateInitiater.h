#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/FolderItem.h"
#include "update/install/ScriptText.h"

namespace Kaju {

/// A downloaded update that waits for the program's end. When the last owner lets go of it, a script is started that
/// waits until the program has ended, puts the new one in its place and starts that.
class UpdateInitiater {
 public:
  /// The unpacked replacement: on macOS the application bundle, elsewhere the folder that holds the new executable and
  /// its companions. Without it, nothing is installed.
  std::optional<toolkit::FolderItem> ReplacementAppFolder;
  /// The name of the new executable in that folder. Not used on macOS.
  std::string ReplacementExecutableName;

  UpdateInitiater() = default;
  UpdateInitiater(const UpdateInitiater&) = delete;
  UpdateInitiater& operator=(const UpdateInitiater&) = delete;
  /// Runs the script. What goes wrong is shown in a message box.
  virtual ~UpdateInitiater();

  /// Nothing is installed any more.
  virtual void Cancel();

  /// Finds out what would keep the script from its work, for as much as can be known: whether the replacement is there
  /// and has its executable, whether there is room for it, and where a script can be written and started. Returns a
  /// text for the user, empty if nothing stands in the way. The event loop runs meanwhile.
  [[nodiscard]] std::string WhatPreventsIt();

  /// Writes and starts the script of this platform; the event loop runs for a second meanwhile. Does nothing if there
  /// is no replacement. A toolkit::RuntimeException is shown in a message box; other exceptions pass. Nothing stays of
  /// an update whose script did not start.
  void RunScript();

  // Of each platform. The script waits for the end of the program as long as `pidFile` exists, and removes `tempFolder`
  // in the end. They return whether the script was started, and throw a toolkit::RuntimeException if it cannot be.
  bool RunScriptMac(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile);
  bool RunScriptLinux(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile) const;
  bool RunScriptWindows(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile) const;

  /// Writes the script into `folder` and returns its file, or nothing after a message box that tells the error. Windows
  /// runs a script by the extension of its name.
  [[nodiscard]] static std::optional<toolkit::FolderItem> SaveScript(std::string_view script,
                                                                     const toolkit::FolderItem& folder,
                                                                     std::string_view name = "kaju_updater.sh");
  /// The program's version with "_64-bit" or "_32-bit" behind it.
  [[nodiscard]] static std::string GetAppVersionForScript();
  /// The names of what lies in `folder`, but for the executable and ".DS_Store".
  [[nodiscard]] static std::vector<std::string> GetManifest(const toolkit::FolderItem& folder,
                                                            std::string_view exeName);
  /// Assignments to the elements of a bash array, one a line, from index 0; empty for no elements.
  [[nodiscard]] static std::string ArrayToShellScript(const std::vector<std::string>& arr, std::string_view name);
  /// `s` as one word of a shell, in single quotes.
  [[nodiscard]] static std::string ShellQuote(std::string_view s);
  /// The path of `item` as one word of a shell, without any "/" at its end.
  [[nodiscard]] static std::string ShellPathQuote(const toolkit::FolderItem& item);

 private:
  [[nodiscard]] bool HasExecutable() const;
  /// Throws a toolkit::RuntimeException with a text for the user if no script can be written or started in a folder at
  /// `place`. Leaves nothing there.
  void RehearseAt(const toolkit::FolderItem& place) const;
  bool RunScriptOfPlatform(const toolkit::FolderItem& tempFolder, const toolkit::FolderItem& pidFile);
  [[nodiscard]] ScriptInput About(const toolkit::FolderItem& exe, const toolkit::FolderItem& tempFolder,
                                  const toolkit::FolderItem& pidFile) const;

  // Where a script was seen to start.
  std::optional<toolkit::FolderItem> place_;
};

}  // namespace Kaju
