#pragma once

#include <string_view>

#include "toolkit/FolderItem.h"

namespace toolkit {

/// Whether the system's number of an error (errno) says that there is no space left, or none for this user.
[[nodiscard]] bool IsDiskFull(int error);

/// Writes bytes to a file. After an error, nothing more is written.
class BinaryStream {
 public:
  /// Creates the file with mode 0600, or empties it if it is there.
  explicit BinaryStream(const FolderItem& file);
  /// Takes a file that is open for writing, or -1 if it could not be opened, with the error in errno.
  explicit BinaryStream(int descriptor);
  BinaryStream(const BinaryStream&) = delete;
  BinaryStream& operator=(const BinaryStream&) = delete;
  ~BinaryStream() { Close(); }

  void Write(std::string_view bytes);
  /// Waits until all of it is on the disk, and gives the file its permissions.
  void Finish(std::filesystem::perms permissions);
  /// Closing can fail as well, where the bytes are only then written.
  void Close();
  /// The system's number of the first error (errno), creating the file included; 0 if there was none.
  [[nodiscard]] int LastErrorCode() const { return error_; }

 private:
  void KeepError(bool failed);

  int descriptor_;
  int error_ = 0;
};

}  // namespace toolkit
