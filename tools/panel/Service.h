#pragma once

#include <string>

#include "panel/Fleet.h"
#include "toolkit/HTTPStatus.h"

namespace panel {

struct Credentials {
  std::string User;
  std::string Password;
};

/// The answer to one request, and what may be logged about it.
struct Reply {
  int Status = toolkit::HTTPStatus::ok;
  std::string Body;       ///< A JSON object.
  std::string Container;  ///< The container that the request named, as sent; empty if it named none.
};

/// The calls of the panel service: from a request's path and body to the reply. Thread-safe.
class Service {
 public:
  /// `fleet` must outlive the service.
  Service(Credentials credentials, Fleet& fleet);

  /// Status 400 with "_error" if the call is refused: the body is not a JSON object, its "username" and "password" are
  /// not the credentials, or the fleet refuses. Status 404 with "_error" if `path` is not a call.
  [[nodiscard]] Reply Answer(const std::string& path, const std::string& body);

 private:
  Credentials credentials_;
  Fleet& fleet_;
};

/// The reply {"_error": message}.
[[nodiscard]] Reply MakeRefusal(int status, const std::string& message);

}  // namespace panel
