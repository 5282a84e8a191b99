#pragma once

#include <string>
#include <string_view>

#include "toolkit/HTTPTransfer.h"

namespace toolkit {

/// The header fields of a reply (RFC 9110).
class InternetHeaders {
 public:
  InternetHeaders() = default;
  explicit InternetHeaders(HTTPHeaders fields) : fields_(std::move(fields)) {}

  /// The values of all fields with that name, separated by a comma and a blank; empty if there is none.
  [[nodiscard]] std::string Value(std::string_view name) const;

 private:
  HTTPHeaders fields_;
};

}  // namespace toolkit
