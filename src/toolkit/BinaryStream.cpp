#include "toolkit/BinaryStream.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace toolkit {

bool IsDiskFull(int error) { return error == ENOSPC || error == EDQUOT; }

BinaryStream::BinaryStream(const FolderItem& file)
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the declaration of open()
    : BinaryStream(open(file.Path().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR)) {}

BinaryStream::BinaryStream(int descriptor) : descriptor_(descriptor) { KeepError(descriptor < 0); }

void BinaryStream::Write(std::string_view bytes) {
  while (!bytes.empty() && error_ == 0) {
    const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    KeepError(written < 0);
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

void BinaryStream::Finish(std::filesystem::perms permissions) {
  if (error_ == 0) KeepError(fchmod(descriptor_, static_cast<mode_t>(permissions)) != 0 || fsync(descriptor_) != 0);
}

void BinaryStream::Close() {
  const int descriptor = std::exchange(descriptor_, -1);
  if (descriptor >= 0) KeepError(close(descriptor) != 0);
}

void BinaryStream::KeepError(bool failed) {
  if (failed && error_ == 0) error_ = errno;
}

}  // namespace toolkit
