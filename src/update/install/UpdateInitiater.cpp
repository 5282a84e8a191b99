#include "update/install/UpdateInitiater.h"

#include <utility>

#include "toolkit/Application.h"
#include "toolkit/BinaryStream.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Shell.h"
#include "toolkit/Text.h"
#include "toolkit/Ticks.h"
#include "toolkit/Timer.h"
#include "update/check/BuildTarget.h"
#include "update/check/FileHelpers.h"
#include "update/check/Versions.h"
#include "update/install/ScriptText.h"

using toolkit::FolderItem;

namespace Kaju {
namespace {

constexpr std::chrono::milliseconds betweenLooks{20};

/// Deletes a file, if one was made, however the work with it ends.
struct FileOnLoan {
  std::optional<FolderItem> File;

  FileOnLoan() = default;
  FileOnLoan(const FileOnLoan&) = delete;
  FileOnLoan& operator=(const FileOnLoan&) = delete;
  ~FileOnLoan() {
    if (File) File->Delete();
  }
};

/// Runs the event loop for one second, which the script needs to start before its parent ends.
void LetScriptStart() {
  const std::int64_t end = toolkit::Ticks() + toolkit::ticksPerSecond;
  // Without events of its own, the loop would sleep past the end.
  toolkit::Timer waker;
  waker.Period = betweenLooks;
  waker.Mode(toolkit::Timer::RunMode::Multiple);
  toolkit::Platform::Current().RunEventsUntil([end] { return toolkit::Ticks() > end; });
}

void RunDetached(const FolderItem& script, const std::string& nohup) {
  using std::filesystem::perms;
  script.Permissions(script.Permissions() | perms::owner_exec | perms::group_exec | perms::others_exec);
  toolkit::Shell shell;
  shell.Mode = toolkit::Shell::RunMode::Asynchronous;
  shell.Execute(nohup + " " + UpdateInitiater::ShellQuote(script.Path().native()) + " &");
  LetScriptStart();
  if (shell.ErrorCode() != 0) throw toolkit::RuntimeException("The install script cannot be started.");
}

}  // namespace

UpdateInitiater::~UpdateInitiater() {
  toolkit::Platform::Current().Dispatch([this] { RunScript(); });
}

void UpdateInitiater::Cancel() { ReplacementAppFolder.reset(); }

void UpdateInitiater::RunScript() {
  if (!ReplacementAppFolder || !ReplacementAppFolder->Exists()) {
    ReplacementAppFolder.reset();
    return;
  }
  FileOnLoan pidFile;  // also while the message stands: the script must not start before the program ends
  try {
    const FolderItem tempFolder = GetTemporaryFolder();
    pidFile.File = toolkit::MakeTemporaryFile();
    switch (BuildTarget::Running().Platform) {
      case System::Mac:
        return RunScriptMac(tempFolder, *pidFile.File);
      case System::Linux:
        return RunScriptLinux(tempFolder, *pidFile.File);
      case System::Windows:
        return RunScriptWindows(tempFolder, *pidFile.File);
    }
  } catch (const toolkit::RuntimeException& exception) {
    toolkit::MsgBox("Could not complete update - " + exception.Message());
  }
}

void UpdateInitiater::RunScriptMac(const FolderItem& tempFolder, const FolderItem& pidFile) {
  const FolderItem exe = TrueExecutableFile();
  const FolderItem& replacement = ReplacementAppFolder.value();
  if (replacement.Name() != exe.Name()) ReplacementAppFolder = replacement.Rename(exe.Name());
  const auto script = SaveScript(MacScript(About(exe, tempFolder, pidFile)), tempFolder);
  if (script) RunDetached(*script, "nohup");
}

void UpdateInitiater::RunScriptLinux(const FolderItem& tempFolder, const FolderItem& pidFile) const {
  const FolderItem exe = toolkit::Application::ExecutableFile();
  const auto script = SaveScript(LinuxScript(About(exe, tempFolder, pidFile)), tempFolder);
  if (script) RunDetached(*script, "/usr/bin/nohup");
}

void UpdateInitiater::RunScriptWindows(const FolderItem& tempFolder, const FolderItem& pidFile) const {
  const FolderItem exe = toolkit::Application::ExecutableFile();
  const auto script = SaveScript(WindowsScript(About(exe, tempFolder, pidFile)), tempFolder, "kaju_updater.bat");
  if (!script) return;
  script->Launch();
  LetScriptStart();
}

std::optional<FolderItem> UpdateInitiater::SaveScript(std::string_view script, const FolderItem& folder,
                                                      std::string_view name) {
  FolderItem file = folder.Child(name);
  toolkit::BinaryStream stream(file);
  stream.Write(script);
  stream.Close();
  if (stream.LastErrorCode() == 0) return file;
  toolkit::MsgBox("Error writing script file: " + std::to_string(stream.LastErrorCode()));
  return std::nullopt;
}

Installation UpdateInitiater::About(const FolderItem& exe, const FolderItem& tempFolder,
                                    const FolderItem& pidFile) const {
  return {.Executable = exe,
          .Version = GetAppVersionForScript(),
          .Replacement = ReplacementAppFolder.value(),
          .ReplacementExecutable = ReplacementExecutableName,
          .TempFolder = tempFolder,
          .PidFile = pidFile};
}

std::string UpdateInitiater::GetAppVersionForScript() {
  return AppVersionString() + (BuildTarget::Running().Bits == Width::Bits64 ? "_64-bit" : "_32-bit");
}

std::vector<std::string> UpdateInitiater::GetManifest(const FolderItem& folder, std::string_view exeName) {
  std::vector<std::string> names;
  for (const FolderItem& item : folder.Children()) {
    if (item.Name() != exeName && item.Name() != ".DS_Store") names.push_back(item.Name());
  }
  return names;
}

std::string UpdateInitiater::ArrayToShellScript(const std::vector<std::string>& arr, std::string_view name) {
  std::string script;
  for (std::size_t index = 0; index < arr.size(); ++index) {
    script.append(name).append("[").append(std::to_string(index)).append("]=").append(ShellQuote(arr[index])) += '\n';
  }
  return script;
}

std::string UpdateInitiater::ShellQuote(std::string_view s) { return toolkit::QuoteForShell(s); }

std::string UpdateInitiater::ShellPathQuote(const FolderItem& item) {
  std::string_view path = item.Path().native();
  while (path.ends_with('/')) path.remove_suffix(1);
  return ShellQuote(path);
}

}  // namespace Kaju
