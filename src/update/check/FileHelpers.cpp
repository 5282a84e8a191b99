#include "update/check/FileHelpers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "toolkit/Application.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

using toolkit::FolderItem;

namespace Kaju {

bool ServeEvents() { return toolkit::Platform::Current().RunDueEvents(); }

std::string HashOfFile(const FolderItem& file, const toolkit::StillWanted& wanted, toolkit::Digest::Kind kind) {
  if (file.IsFolder() || !file.IsReadable() || !toolkit::Digest::IsAvailable(kind)) return "";
  std::ifstream stream(file.Path(), std::ios::binary);
  std::vector<char> chunk(toolkit::bytesAtOnce);
  toolkit::Digest digest(kind);
  while (stream) {
    stream.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
    digest.Process({chunk.data(), static_cast<std::size_t>(stream.gcount())});
    ServeEvents();
    if (!toolkit::IsWanted(wanted)) return "";
  }
  return stream.eof() ? toolkit::EncodeHex(digest.Value()) : "";
}

void DeleteRecursive(const FolderItem& item) {
  if (!item.Exists() || !item.IsWriteable()) return;
  std::vector<FolderItem> entries = item.Children();
  const auto firstFile =
      std::stable_partition(entries.begin(), entries.end(), [](const FolderItem& entry) { return entry.IsFolder(); });
  std::for_each(entries.begin(), firstFile, DeleteRecursive);
  std::for_each(firstFile, entries.end(), [](const FolderItem& file) { file.Delete(); });
  item.Delete();
  ServeEvents();
}

void DeleteWholly(const FolderItem& item) {
  std::vector<FolderItem> folders{item};
  while (!folders.empty()) {
    const FolderItem folder = std::move(folders.back());
    folders.pop_back();
    if (!folder.IsFolder()) continue;
    std::error_code ignored;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all, std::filesystem::perm_options::add,
                                 ignored);
    std::ranges::move(folder.Children(), std::back_inserter(folders));
  }
  DeleteRecursive(item);
}

bool IsWriteableRecursive(const FolderItem& item) {
  if (!item.IsFolder() || !item.IsWriteable()) return item.IsWriteable();
  std::vector<FolderItem> folders{item};
  for (std::size_t index = 0; index < folders.size(); ++index) {
    for (FolderItem& entry : folders[index].Children()) {
      if (!entry.IsWriteable()) return false;
      if (entry.IsFolder()) folders.push_back(std::move(entry));
    }
    ServeEvents();
  }
  return true;
}

FolderItem GetTemporaryFolder() { return toolkit::MakeTemporaryFolder(); }

FolderItem TrueExecutableFile() {
  return TrueExecutableFile(toolkit::Application::ExecutableFile(), BuildTarget::Running().Platform);
}

FolderItem TrueExecutableFile(const FolderItem& executable, System system) {
  if (system != System::Mac) return executable;
  FolderItem folder = executable.Parent();
  while (folder.Path().has_relative_path()) {
    if (toolkit::EqualIgnoringCase(folder.Name(), "Contents")) return folder.Parent();
    folder = folder.Parent();
  }
  return executable;
}

}  // namespace Kaju
