#pragma once

#include <array>
#include <string>
#include <type_traits>

#include "toolkit/HTTPTransfer.h"
#include "toolkit/http/Address.h"
#include "toolkit/http/Authorities.h"
#include "toolkit/http/Failures.h"

namespace toolkit::http {

/// libcurl's handle of one request, configured to send it exactly as given: once, over HTTP/1.1, without redirects,
/// cookies, cache, decompression or implicit credentials.
class EasyHandle {
 public:
  /// `proxy` is a URL, or empty.
  EasyHandle(const Curl& curl, const HTTPRequest& request, const Address& address, const std::string& proxy,
             const Authorities& authorities);
  EasyHandle(const EasyHandle&) = delete;
  EasyHandle& operator=(const EasyHandle&) = delete;
  ~EasyHandle();

  [[nodiscard]] CURL* Get() const { return easy_; }

  /// libcurl takes long values, functions and pointers.
  template <typename Value>
  void Set(CURLoption option, Value value) {
    static_assert(std::is_same_v<Value, long> || std::is_pointer_v<Value>);
    curl_.easy_setopt(easy_, option, value);
  }
  /// `Value` is long, curl_off_t or a pointer, as libcurl documents it for `which`.
  template <typename Value>
  [[nodiscard]] Value Information(CURLINFO which) const {
    Value value{};
    curl_.easy_getinfo(easy_, which, &value);
    return value;
  }
  [[nodiscard]] FaultAndDetail WhyFailed(CURLcode code) const;

 private:
  void SetConnection(const HTTPRequest& request, const Address& address, const std::string& proxy);
  void SetCertificates(CertificateCheck check, const Authorities& authorities);
  void SetMethod(const HTTPRequest& request);
  void SetHeaders(const HTTPHeaders& headers);

  const Curl& curl_;
  CURL* easy_;
  bool usesProxy_;
  curl_slist* headers_ = nullptr;
  std::array<char, CURL_ERROR_SIZE> errorText_{};
};

}  // namespace toolkit::http
