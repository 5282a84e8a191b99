#include "update/install/ZipShell.h"

#include <utility>

#include "resources/Resource.h"
#include "toolkit/Application.h"
#include "toolkit/Text.h"
#include "update/check/KajuException.h"

using toolkit::FolderItem;

namespace Kaju {
namespace {

// Exit codes of unzip and zipinfo.
constexpr int warning = 1;
constexpr int diskFull = 50;

std::string CompressCommand(System system, const FolderItem& source, const FolderItem& target) {
  if (system == System::Mac) {
    return "/usr/bin/ditto -c -k --sequesterRsrc --keepParent " + source.ShellPath() + " " + target.ShellPath();
  }
  // zip would add to an existing archive.
  return "unset ZIPOPT; /bin/rm -f " + target.ShellPath() + " && cd " + source.Parent().ShellPath() +
         " && /usr/bin/zip -q -r -y " + target.ShellPath() + " " + toolkit::QuoteForShell("./" + source.Name());
}

std::string DecompressCommand(System system, const FolderItem& zipFile, const FolderItem& folder) {
  const std::string paths = zipFile.ShellPath() + " " + folder.ShellPath();
  if (system == System::Mac) return "/usr/bin/ditto -x -k " + paths;
  const auto script = resources::Find("unpack");
  const std::string_view text(reinterpret_cast<const char*>(script.data()), script.size());
  return "/bin/bash -p -c " + toolkit::QuoteForShell(text) + " unpack " + paths + " " +
         toolkit::Application::ExecutableFile().Parent().Child("lib").Child("unzip").ShellPath();
}

}  // namespace

void ZipShell::Compress(const FolderItem& source, const std::optional<FolderItem>& destination) {
  const std::string name = source.Name() + ".zip";
  if (!destination) {
    result_ = source.Parent().Child(name);
  } else {
    result_ = destination->IsFolder() ? destination->Child(name) : *destination;
  }
  Execute(CompressCommand(Platform, source, *result_));
  if (Mode != RunMode::Synchronous) currentOperation_ = Operation::Compress;
}

void ZipShell::Decompress(const FolderItem& zipFile, const std::optional<FolderItem>& destination) {
  result_ = destination ? *destination : zipFile.Parent();
  zipFile_ = zipFile;
  if (Mode != RunMode::Synchronous) currentOperation_ = Operation::Decompress;
  Execute(DecompressCommand(Platform, zipFile, *result_));
}

std::string ZipShell::ContentsOf(const FolderItem& zipFile) {
  Shell shell;
  shell.Execute("/usr/bin/zipinfo -1 " + zipFile.ShellPath() + " 2>/dev/null");
  if (shell.ErrorCode() > warning) return "";
  std::string name = shell.Result().substr(0, shell.Result().find_first_of("\r\n"));
  if (name.ends_with('/')) name.pop_back();
  return name;
}

// unzip returns that code for files, but not for folders.
bool ZipShell::FoundDiskFull() const {
  return ErrorCode() == diskFull || (ErrorCode() != 0 && Result().find("No space left on device") != std::string::npos);
}

void ZipShell::WindowsUnzip(const FolderItem& /*zipFile*/, const FolderItem& /*destination*/) {
  throw KajuException(KajuException::kErrorImproperFunction(), "Kaju.ZipShell.WindowsUnzip");
}

// The handlers may start the next operation or destroy this object, so the state is reset first.
void ZipShell::DoCompleted() {
  const auto result = std::exchange(result_, std::nullopt);
  const auto zipFile = std::exchange(zipFile_, std::nullopt);
  const Operation operation = std::exchange(currentOperation_, Operation::None);
  if (ErrorCode() != 0) {
    Error();
  } else if (operation == Operation::Compress) {
    CompressCompleted(*result);
  } else if (operation == Operation::Decompress) {
    DecompressCompleted(*zipFile, *result);
  }
}

}  // namespace Kaju
