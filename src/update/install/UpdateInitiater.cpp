#include "update/install/UpdateInitiater.h"

#include <algorithm>
#include <filesystem>
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
#include "update/check/KajuLocale.h"
#include "update/check/Versions.h"
#include "update/install/Leftovers.h"
#include "update/install/ScriptText.h"

namespace fs = std::filesystem;
using toolkit::FolderItem;

namespace Kaju {
namespace {

constexpr std::chrono::milliseconds betweenLooks{20};

/// Deletes a file, if one was created, on every path out of the scope. While the file exists, the script does nothing.
struct FileOnLoan {
  std::optional<FolderItem> File;

  FileOnLoan() = default;
  FileOnLoan(const FileOnLoan&) = delete;
  FileOnLoan& operator=(const FileOnLoan&) = delete;
  ~FileOnLoan() {
    if (!File) return;
    File->Delete();
    if (File->Exists()) toolkit::MsgBox("Could not complete update - " + File->Path().string() + " cannot be deleted.");
  }
};

/// Runs the event loop for one second, which the script needs to start before its parent ends.
void LetScriptStart() {
  const std::int64_t end = toolkit::Ticks() + toolkit::ticksPerSecond;
  // Without any events, the loop would sleep longer.
  toolkit::Timer waker;
  waker.Period = betweenLooks;
  waker.Mode(toolkit::Timer::RunMode::Multiple);
  toolkit::Platform::Current().RunEventsUntil([end] { return toolkit::Ticks() > end; });
}

void MakeExecutable(const FolderItem& script) {
  using std::filesystem::perms;
  script.Permissions(script.Permissions() | perms::owner_exec | perms::group_exec | perms::others_exec);
}

void RunDetached(const FolderItem& script, const std::string& nohup) {
  MakeExecutable(script);
  toolkit::Shell shell;
  shell.Mode = toolkit::Shell::RunMode::Asynchronous;
  shell.Execute(nohup + " " + UpdateInitiater::ShellQuote(script.Path().native()) + " &");
  LetScriptStart();
  if (shell.ErrorCode() != 0) throw toolkit::RuntimeException("The install script cannot be started.");
}

/// Returns the errno value, 0 for success.
int Write(std::string_view text, const FolderItem& file) {
  toolkit::BinaryStream stream(file);
  stream.Write(text);
  stream.Close();
  return stream.LastErrorCode();
}

std::string Explain(int error) {
  return toolkit::IsDiskFull(error) ? KajuLocale::kDiskFullMessage() : KajuLocale::kScriptNotWrittenMessage();
}

/// Deletes the folder at the end of the scope.
struct FolderOnLoan {
  FolderItem Folder;

  explicit FolderOnLoan(FolderItem folder) : Folder(std::move(folder)) {}
  FolderOnLoan(const FolderOnLoan&) = delete;
  FolderOnLoan& operator=(const FolderOnLoan&) = delete;
  ~FolderOnLoan() { DeleteWholly(Folder); }
};

/// Whether the content of `folder` fits on the disk of `place`. If that is the same disk, always.
bool HasRoom(const FolderItem& folder, const FolderItem& place) {
  if (toolkit::AreOnOneDisk(folder, place)) return true;
  std::uintmax_t size = 0;
  std::error_code error;
  for (fs::recursive_directory_iterator entry(folder.Path(), error), end; !error && entry != end;
       entry.increment(error)) {
    const std::uintmax_t ofFile = entry->is_symlink(error) || entry->is_directory(error) ? 0 : entry->file_size(error);
    if (!error) size += ofFile;
  }
  const fs::space_info space = fs::space(place.Path(), error);
  return error || space.available >= size;
}

}  // namespace

UpdateInitiater::~UpdateInitiater() {
  toolkit::Platform::Current().Dispatch([this] { RunScript(); });
}

void UpdateInitiater::Cancel() { ReplacementAppFolder.reset(); }

std::string UpdateInitiater::WhatPreventsIt() {
  if (!ReplacementAppFolder || !ReplacementAppFolder->Exists()) return KajuLocale::kUpdateGoneMessage();
  if (!HasExecutable()) return KajuLocale::kNoProgramMessage();
  if (!HasRoom(*ReplacementAppFolder, TrueExecutableFile().Parent())) return KajuLocale::kDiskFullMessage();
  std::string problem;
  for (const FolderItem& place : toolkit::TemporaryPlaces()) {
    if (!ReplacementAppFolder) break;  // it was cancelled meanwhile
    try {
      RehearseAt(place);
      place_ = place;
      return "";
    } catch (const toolkit::RuntimeException& exception) {
      if (problem.empty()) problem = exception.Message();
    }
  }
  return problem;
}

// The program is started by its name, so there must be a regular file with that name, or a link to one, inside the
// folder.
bool UpdateInitiater::HasExecutable() const {
  if (BuildTarget::Running().Platform == System::Mac) return true;
  const FolderItem named = ReplacementAppFolder->Child(ReplacementExecutableName);
  std::error_code error;
  const fs::path folder = fs::canonical(ReplacementAppFolder->Path(), error);
  if (error) return false;
  const fs::path file = fs::canonical(named.Path(), error);
  if (error || !fs::is_regular_file(file, error)) return false;
  return named.Parent().Path() == ReplacementAppFolder->Path() &&
         std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first == folder.end();
}

void UpdateInitiater::RehearseAt(const FolderItem& place) const {
  std::optional<FolderOnLoan> folder;
  try {
    folder.emplace(toolkit::MakeTemporaryFolder(place));
  } catch (const toolkit::RuntimeException& exception) {
    throw toolkit::RuntimeException(Explain(exception.SystemError()));
  }
  const FolderItem script = folder->Folder.Child("kaju_updater.sh");
  const FolderItem starter = folder->Folder.Child("starter");
  int error = Write(LinuxScript(About(script, folder->Folder, script)), script);
  if (error == 0) error = Write(toolkit::Environment(), folder->Folder.Child("environment"));
  if (error == 0) error = Write("#!/bin/bash -p\n", starter);
  if (error != 0) throw toolkit::RuntimeException(Explain(error));
  MakeExecutable(starter);
  toolkit::Shell shell;
  shell.Execute(starter.ShellPath());
  if (shell.ErrorCode() != 0) throw toolkit::RuntimeException(KajuLocale::kNothingStartsMessage());
}

void UpdateInitiater::RunScript() {
  if (!ReplacementAppFolder || !ReplacementAppFolder->Exists()) {
    ReplacementAppFolder.reset();
    return;
  }
  bool isStarted = false;
  std::optional<FolderItem> tempFolder;
  FileOnLoan pidFile;  // also covers the message box: the script must not start before the program ends
  try {
    tempFolder = place_ ? toolkit::MakeTemporaryFolder(*place_) : GetTemporaryFolder();
    pidFile.File = toolkit::MakeTemporaryFile(*tempFolder);  // where no other user can keep the script waiting
    isStarted = RunScriptOfPlatform(*tempFolder, *pidFile.File);
  } catch (const toolkit::RuntimeException& exception) {
    toolkit::MsgBox("Could not complete update - " + exception.Message());
  }
  if (isStarted) return;
  RemoveDownload(*ReplacementAppFolder);
  if (tempFolder) DeleteWholly(*tempFolder);
}

bool UpdateInitiater::RunScriptOfPlatform(const FolderItem& tempFolder, const FolderItem& pidFile) {
  switch (BuildTarget::Running().Platform) {
    case System::Mac:
      return RunScriptMac(tempFolder, pidFile);
    case System::Linux:
      return RunScriptLinux(tempFolder, pidFile);
    case System::Windows:
      return RunScriptWindows(tempFolder, pidFile);
  }
  return false;
}

bool UpdateInitiater::RunScriptMac(const FolderItem& tempFolder, const FolderItem& pidFile) {
  const FolderItem exe = TrueExecutableFile();
  const FolderItem& replacement = ReplacementAppFolder.value();
  if (replacement.Name() != exe.Name()) ReplacementAppFolder = replacement.Rename(exe.Name());
  const auto script = SaveScript(MacScript(About(exe, tempFolder, pidFile)), tempFolder);
  if (script) RunDetached(*script, "nohup");
  return script.has_value();
}

bool UpdateInitiater::RunScriptLinux(const FolderItem& tempFolder, const FolderItem& pidFile) const {
  const FolderItem exe = toolkit::Application::ExecutableFile();
  if (!SaveScript(toolkit::Environment(), tempFolder, "environment")) return false;
  const auto script = SaveScript(LinuxScript(About(exe, tempFolder, pidFile)), tempFolder);
  if (script) RunDetached(*script, "/usr/bin/nohup");
  return script.has_value();
}

bool UpdateInitiater::RunScriptWindows(const FolderItem& tempFolder, const FolderItem& pidFile) const {
  const FolderItem exe = toolkit::Application::ExecutableFile();
  const auto script = SaveScript(WindowsScript(About(exe, tempFolder, pidFile)), tempFolder, "kaju_updater.bat");
  if (!script) return false;
  script->Launch();
  LetScriptStart();
  return true;
}

std::optional<FolderItem> UpdateInitiater::SaveScript(std::string_view script, const FolderItem& folder,
                                                      std::string_view name) {
  FolderItem file = folder.Child(name);
  const int error = Write(script, file);
  if (error == 0) return file;
  toolkit::MsgBox("Error writing script file: " + std::to_string(error));
  return std::nullopt;
}

ScriptInput UpdateInitiater::About(const FolderItem& exe, const FolderItem& tempFolder,
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
