#pragma once

#include <string_view>

#include "toolkit/FolderItem.h"

namespace toolkit {

/// Writes bytes to a file.
class BinaryStream {
 public:
  /// Creates the file with mode 0600, or empties it if it is there.
  explicit BinaryStream(const FolderItem& file);
  BinaryStream(const BinaryStream&) = delete;
  BinaryStream& operator=(const BinaryStream&) = delete;
  ~BinaryStream() { Close(); }

  void Write(std::string_view bytes);
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
