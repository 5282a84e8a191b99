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

  /// The value of the first field of that name, in either case; empty if there is none.
  [[nodiscard]] std::string Value(std::string_view name) const;

 private:
  HTTPHeaders fields_;
};

}  // namespace toolkit
