#pragma once

#include <stdexcept>
#include <string>

namespace toolkit {

/// A failure with a text for the user.
class RuntimeException : public std::runtime_error {
 public:
  explicit RuntimeException(const std::string& message) : std::runtime_error(message), message_(message) {}

  /// The whole text; what() ends at its first NUL.
  [[nodiscard]] const std::string& Message() const { return message_; }

 private:
  std::string message_;
};

}  // namespace toolkit
