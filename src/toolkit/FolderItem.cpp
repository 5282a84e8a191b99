#include "toolkit/FolderItem.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "toolkit/DesktopTexts.h"
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

std::string TemporaryPrefix() { return Platform::Current().Program().Id + "-"; }

/// A path as mkstemp() and mkdtemp() need it.
std::string TemporaryPath(const FolderItem& place) {
  place.CreateAsFolder();
  return place.Child(TemporaryPrefix() + "XXXXXX").Path().string();
}

[[noreturn]] void ThrowForTemporary(const LocalizedText& message, const std::string& path) {
  const int error = errno;
  const std::string reason = std::generic_category().message(error);
  throw RuntimeException(ReplaceAll(ReplaceAll(message(), "<<Reason>>", reason), "<<Path>>", path), error);
}

FolderItem MakeInFirstPlace(FolderItem (*make)(const FolderItem& place)) {
  std::exception_ptr failure;
  for (const FolderItem& place : TemporaryPlaces()) {
    try {
      return make(place);
    } catch (const RuntimeException&) {
      if (!failure) failure = std::current_exception();
    }
  }
  std::rethrow_exception(failure);
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

bool AreOnOneDisk(const FolderItem& one, const FolderItem& other) {
  struct stat ofOne {};
  struct stat ofOther {};
  return stat(one.Path().c_str(), &ofOne) == 0 && stat(other.Path().c_str(), &ofOther) == 0 &&
         ofOne.st_dev == ofOther.st_dev;
}

std::vector<FolderItem> TemporaryPlaces() {
  std::vector<FolderItem> places;
  std::error_code error;
  fs::path folder = fs::temp_directory_path(error);
  if (!error) folder = fs::absolute(folder, error);
  if (!error) places.emplace_back(folder);
  places.push_back(Platform::Current().CacheFolder());
  return places;
}

FolderItem MakeTemporaryFolder(const FolderItem& place) {
  std::string path = TemporaryPath(place);
  if (mkdtemp(path.data()) == nullptr) ThrowForTemporary(DesktopTexts::kNoTemporaryFolderMessage, path);
  return FolderItem(path);
}

FolderItem MakeTemporaryFolder() { return MakeInFirstPlace(MakeTemporaryFolder); }

FolderItem MakeTemporaryFile(const FolderItem& place) {
  std::string path = TemporaryPath(place);
  const int descriptor = mkstemp(path.data());
  if (descriptor < 0) ThrowForTemporary(DesktopTexts::kNoTemporaryFileMessage, path);
  close(descriptor);
  return FolderItem(path);
}

FolderItem MakeTemporaryFile() { return MakeInFirstPlace(MakeTemporaryFile); }

std::vector<FolderItem> TemporaryFolders() {
  std::vector<FolderItem> folders;
  for (const FolderItem& place : TemporaryPlaces()) {
    for (const FolderItem& entry : place.Children()) {
      struct stat status {};
      const bool isOwn = lstat(entry.Path().c_str(), &status) == 0 && status.st_uid == geteuid();
      if (isOwn && entry.IsFolder() && entry.Name().starts_with(TemporaryPrefix())) folders.push_back(entry);
    }
  }
  return folders;
}

}  // namespace toolkit
