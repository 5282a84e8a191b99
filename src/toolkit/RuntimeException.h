#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace toolkit {

/// A failure with a text for the user.
class RuntimeException : public std::runtime_error {
 public:
  explicit RuntimeException(const std::string& message, int systemError = 0)
      : std::runtime_error(message), message_(message), systemError_(systemError) {}

  /// Where it was raised, as far as that is told; the last entry is the place itself.
  std::vector<std::string> Stack;

  /// The whole text; what() ends at its first NUL.
  [[nodiscard]] const std::string& Message() const { return message_; }
  /// The system's number of the error behind it (errno); 0 if none is told.
  [[nodiscard]] int SystemError() const { return systemError_; }

 private:
  std::string message_;
  int systemError_;
};

/// A name was looked up that does not exist.
class KeyNotFoundException : public RuntimeException {
 public:
  using RuntimeException::RuntimeException;
};

/// A value is of a kind that cannot be converted to the one that is needed.
class TypeMismatchException : public RuntimeException {
 public:
  using RuntimeException::RuntimeException;
};

}  // namespace toolkit
