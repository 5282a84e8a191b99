#pragma once

#include <string>

#include <curl/curl.h>

#include "support/Measure.h"

namespace bench {

/// The floor of all transfers: libcurl on one kept connection. Like the program, it does not check certificates.
class CurlConnection {
 public:
  struct Reply {
    std::string Body;
    /// When its first header arrived.
    Clock::time_point HeadersAt;
  };

  CurlConnection();
  CurlConnection(const CurlConnection&) = delete;
  CurlConnection& operator=(const CurlConnection&) = delete;
  ~CurlConnection();

  /// POSTs JSON and waits for the whole reply. Throws unless its status is 200.
  Reply Post(const std::string& url, const std::string& body);
  /// Downloads a file to `path`; the returned body is empty. Throws unless the status is 200.
  Reply Download(const std::string& url, const std::string& path);

 private:
  void Perform(const std::string& url);
  void Check(CURLcode code) const;

  CURL* handle_;
  curl_slist* headers_;
};

}  // namespace bench
