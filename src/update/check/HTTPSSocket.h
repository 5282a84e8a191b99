#pragma once

#include <string>

#include "toolkit/HTTPSecureSocket.h"
#include "toolkit/HTTPStatus.h"

namespace Kaju {

/// The socket of all update traffic: the scheme of each URL decides between a plain and a secure connection, and a user
/// name and password may stand in the URL. All operations are those of the base.
class HTTPSSocket : public toolkit::HTTPSecureSocket {
 public:
  /// What the library grants a server: seconds without progress, and redirects from one address.
  static constexpr int kTimeoutSeconds = 5;
  static constexpr int kMostRedirects = 5;

  /// Whether to use a secure connection whatever the URL says.
  bool ForceSecure = false;

  /// Where the redirects from `url` lead: the "Location" of one header request after another, as it stands, until a
  /// reply has none or `maximumIterations` requests were sent (below 1: no limit). Each may take `timeoutSeconds`
  /// without progress. Runs the event loop; an interrupted or failed request ends the search.
  std::string GetRedirectAddress(std::string url, int timeoutSeconds = kTimeoutSeconds,
                                 int maximumIterations = kMostRedirects);
  /// Whether the last reply says that there is nothing at the address.
  [[nodiscard]] bool IsMissing() const { return HTTPStatusCode() == toolkit::HTTPStatus::notFound; }

 protected:
  /// Takes scheme and credentials out of `url` and sets the connection up for them. The credentials stay for later URLs
  /// without any.
  void SetSecure(std::string& url);

  /// A server asks for a name and a password. A derived class that fills them in returns true; otherwise those of the
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
