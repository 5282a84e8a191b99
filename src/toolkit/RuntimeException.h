#pragma once

#include <stdexcept>
#include <string>

namespace toolkit {

/// A failure with a text for the user.
class RuntimeException : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;

  [[nodiscard]] std::string Message() const { return what(); }
};

}  // namespace toolkit
