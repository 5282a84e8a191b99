#pragma once

#include <memory>
#include <string>

#include "toolkit/http/Curl.h"

namespace toolkit::http {

/// The URL (RFC 3986) of a request, without the parts that the server must not see: user name, password, fragment.
class Address {
 public:
  Address(const Curl& curl, const std::string& url);

  /// Whether it is an http or https URL with a host.
  [[nodiscard]] bool IsValid() const { return isValid_; }
  /// Without the brackets of an IPv6 address; empty if the URL has none.
  [[nodiscard]] const std::string& Host() const { return host_; }
  /// The scheme's default if the URL has none.
  [[nodiscard]] int Port() const { return port_; }
  [[nodiscard]] std::string Text() const { return Part(CURLUPART_URL); }
  [[nodiscard]] CURLU* Handle() const { return url_.get(); }

 private:
  [[nodiscard]] std::string Part(CURLUPart part) const;

  const Curl* curl_;
  std::unique_ptr<CURLU, decltype(Curl::url_cleanup)> url_;
  bool isValid_ = false;
  std::string host_;
  int port_ = 0;
};

}  // namespace toolkit::http
