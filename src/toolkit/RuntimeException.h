#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace toolkit {

/// A failure with a message for the user.
class RuntimeException : public std::runtime_error {
 public:
  explicit RuntimeException(const std::string& message, int systemError = 0)
      : std::runtime_error(message), message_(message), systemError_(systemError) {}

  /// The functions in which it was raised, as far as known; the last entry is the innermost.
  std::vector<std::string> Stack;

  /// The whole message; what() ends at its first NUL.
  [[nodiscard]] const std::string& Message() const { return message_; }
  /// The errno value of the cause; 0 if unknown.
  [[nodiscard]] int SystemError() const { return systemError_; }

 private:
  std::string message_;
  int systemError_;
};

/// There is nothing with the requested name.
class KeyNotFoundException : public RuntimeException {
 public:
  using RuntimeException::RuntimeException;
};

/// A value cannot be converted to the required type.
class TypeMismatchException : public RuntimeException {
 public:
  using RuntimeException::RuntimeException;
};

}  // namespace toolkit
