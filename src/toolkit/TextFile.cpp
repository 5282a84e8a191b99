#include "toolkit/TextFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "toolkit/RuntimeException.h"

namespace toolkit {
namespace {

[[noreturn]] void ThrowFor(const FolderItem& file, const std::string& failure, int error) {
  throw RuntimeException("The file " + file.Path().string() + " could not be " + failure + ": " +
                         std::generic_category().message(error) + ".");
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return fsync(file) == 0;
}

/// The permissions that the file has, or those that a new one is to have.
mode_t ModeOf(const FolderItem& file) {
  constexpr mode_t forAll = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
  struct stat status {};
  return stat(file.Path().c_str(), &status) == 0 ? status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO) : forAll;
}

}  // namespace

std::string ReadFile(const FolderItem& file) {
  std::ifstream stream(file.Path(), std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(stream), {});
  if (!stream.is_open() || stream.bad() || file.IsFolder()) ThrowFor(file, "read", errno == 0 ? EIO : errno);
  return bytes;
}

void ReplaceFile(const FolderItem& file, std::string_view bytes) {
  // Where the path is a link, what it points to is replaced, not the link.
  std::error_code ignored;
  const std::string path = std::filesystem::weakly_canonical(file.Path(), ignored).string();
  std::string fresh = path + ".XXXXXX";
  const int descriptor = mkstemp(fresh.data());
  if (descriptor < 0) ThrowFor(file, "written", errno);
  bool isWritten = WriteAll(descriptor, bytes) && fchmod(descriptor, ModeOf(file)) == 0;
  int error = errno;
  isWritten = close(descriptor) == 0 && isWritten;
  if (isWritten && std::rename(fresh.c_str(), path.c_str()) == 0) return;
  if (isWritten) error = errno;
  unlink(fresh.c_str());
  ThrowFor(file, "written", error);
}

}  // namespace toolkit
