#pragma once

#include <string_view>

#include "toolkit/FolderItem.h"

namespace toolkit {

/// Whether `error` (an errno value) means that the disk or the user's quota is full.
[[nodiscard]] bool IsDiskFull(int error);

/// Writes bytes to a file. After an error, further writes are ignored.
class BinaryStream {
 public:
  /// Creates the file with mode 0600, or truncates it if it exists.
  explicit BinaryStream(const FolderItem& file);
  /// Takes ownership of a descriptor that is open for writing, or -1 if opening failed, with the error in errno.
  explicit BinaryStream(int descriptor);
  BinaryStream(const BinaryStream&) = delete;
  BinaryStream& operator=(const BinaryStream&) = delete;
  ~BinaryStream() { Close(); }

  void Write(std::string_view bytes);
  /// Sets the permissions and waits until everything is on the disk.
  void Finish(std::filesystem::perms permissions);
  /// Can fail as well, if the bytes are written only now.
  void Close();
  /// The errno value of the first error, including that of creating the file; 0 if there was none.
  [[nodiscard]] int LastErrorCode() const { return error_; }

 private:
  void KeepError(bool failed);

  int descriptor_;
  int error_ = 0;
};

}  // namespace toolkit
