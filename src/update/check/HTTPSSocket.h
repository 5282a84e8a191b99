#pragma once

#include <string>

#include "toolkit/HTTPSecureSocket.h"
#include "toolkit/HTTPStatus.h"

namespace Kaju {

/// The socket of all update traffic: the scheme of each URL selects a plain or a secure connection, and the URL may
/// contain a user name and a password. All operations are those of the base.
class HTTPSSocket : public toolkit::HTTPSecureSocket {
 public:
  /// The limits for servers: seconds without progress, and the number of redirects.
  static constexpr int kTimeoutSeconds = 5;
  static constexpr int kMostRedirects = 5;

  /// Whether to use a secure connection for every URL.
  bool ForceSecure = false;

  /// Follows the redirects from `url`: sends header requests to each "Location", which is used unchanged, until a reply
  /// has none or `maximumIterations` requests were sent (below 1: no limit). Returns the last address. `timeoutSeconds`
  /// limits the time without progress of each. Runs the event loop; a failed or interrupted request ends the search.
  std::string GetRedirectAddress(std::string url, int timeoutSeconds = kTimeoutSeconds,
                                 int maximumIterations = kMostRedirects);
  /// Whether the last reply says that the address does not exist.
  [[nodiscard]] bool IsMissing() const { return HTTPStatusCode() == toolkit::HTTPStatus::notFound; }

 protected:
  /// Removes the scheme and the credentials from `url` and configures the connection for them. The credentials are also
  /// used for later URLs without any.
  void SetSecure(std::string& url);

  /// The server requires a name and a password. A derived class that fills them in returns true; otherwise those of the
  /// URL are used.
  virtual bool AuthenticationRequired(const std::string& /*realm*/, const toolkit::InternetHeaders& /*headers*/,
                                      std::string& /*name*/, std::string& /*password*/) {
    return false;
  }

  void Event_BeforeRequest(std::string& url) override { SetSecure(url); }
  bool Event_AuthenticationRequired(const std::string& realm, const toolkit::InternetHeaders& headers,
                                    std::string& name, std::string& password) override;

 private:
  std::string password_;
  std::string username_;
};

}  // namespace Kaju
