#include "toolkit/FolderItem.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include "toolkit/Platform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"

namespace fs = std::filesystem;

namespace toolkit {
namespace {

fs::file_type TypeOf(const fs::path& path) {
  std::error_code ignored;
  return fs::symlink_status(path, ignored).type();
}

/// A path in the system's temporary folder that ends as mkstemp() and mkdtemp() want it.
std::string TemporaryPath() {
  std::error_code error;
  fs::path folder = fs::temp_directory_path(error);
  if (!error) folder = fs::absolute(folder, error);
  if (error) throw RuntimeException("There is no folder for temporary files: " + error.message() + ".");
  return (folder / (Platform::Current().Program().Id + "-XXXXXX")).string();
}

}  // namespace

FolderItem FolderItem::Child(std::string_view name) const { return FolderItem(path_ / name); }

std::vector<FolderItem> FolderItem::Children() const {
  std::vector<FolderItem> children;
  if (!IsFolder()) return children;
  std::error_code error;
  for (fs::directory_iterator entry(path_, error), end; !error && entry != end; entry.increment(error)) {
    children.emplace_back(entry->path());
  }
  std::ranges::sort(children, {}, [](const FolderItem& item) { return item.Path().native(); });
  return children;
}

bool FolderItem::Exists() const {
  const fs::file_type type = TypeOf(path_);
  return type != fs::file_type::not_found && type != fs::file_type::none;
}

bool FolderItem::IsFolder() const { return TypeOf(path_) == fs::file_type::directory; }

bool FolderItem::IsReadable() const { return faccessat(AT_FDCWD, path_.c_str(), R_OK, AT_EACCESS) == 0; }

bool FolderItem::IsWriteable() const {
  if (TypeOf(path_) == fs::file_type::symlink) return true;
  return faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) == 0 || errno == ETXTBSY;
}

std::string FolderItem::ShellPath() const { return QuoteForShell(path_.native()); }

fs::perms FolderItem::Permissions() const {
  std::error_code error;
  const fs::file_status status = fs::status(path_, error);
  return error ? fs::perms::none : status.permissions();
}

void FolderItem::Permissions(fs::perms permissions) const {
  std::error_code error;
  fs::permissions(path_, permissions, error);
  if (error) throw RuntimeException("The permissions of " + path_.string() + " cannot be set: " + error.message());
}

FolderItem FolderItem::Rename(std::string_view name) const {
  FolderItem renamed = Parent().Child(name);
  std::error_code error;
  fs::rename(path_, renamed.Path(), error);
  if (error) {
    throw RuntimeException(path_.string() + " cannot be renamed to " + renamed.Path().string() + ": " +
                           error.message());
  }
  return renamed;
}

void FolderItem::CreateAsFolder() const {
  std::error_code ignored;
  fs::create_directories(path_, ignored);
}

void FolderItem::Delete() const {
  std::error_code ignored;
  fs::remove(path_, ignored);
}

void FolderItem::Launch() const { Platform::Current().OpenURL("file://" + EncodeURLPath(path_.string())); }

FolderItem MakeTemporaryFolder() {
  std::string path = TemporaryPath();
  if (mkdtemp(path.data()) == nullptr) throw RuntimeException("No temporary folder can be made at " + path + ".");
  return FolderItem(path);
}

FolderItem MakeTemporaryFile() {
  std::string path = TemporaryPath();
  const int descriptor = mkstemp(path.data());
  if (descriptor < 0) throw RuntimeException("No temporary file can be made at " + path + ".");
  close(descriptor);
  return FolderItem(path);
}

}  // namespace toolkit
