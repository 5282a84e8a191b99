#include "toolkit/FolderItem.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include "toolkit/RuntimeException.h"

namespace fs = std::filesystem;

namespace toolkit {
namespace {

fs::file_type TypeOf(const fs::path& path) {
  std::error_code ignored;
  return fs::symlink_status(path, ignored).type();
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

void FolderItem::CreateAsFolder() const {
  std::error_code ignored;
  fs::create_directories(path_, ignored);
}

void FolderItem::Delete() const {
  std::error_code ignored;
  fs::remove(path_, ignored);
}

FolderItem MakeTemporaryFolder() {
  std::error_code error;
  std::string path = (fs::temp_directory_path(error) / "corvane-XXXXXX").string();
  if (error || mkdtemp(path.data()) == nullptr) {
    throw RuntimeException("No temporary folder can be made at " + path + ".");
  }
  return FolderItem(path);
}

}  // namespace toolkit
