#pragma once

#include <string>

#include <curl/curl.h>

#include "support/Measure.h"

namespace bench {

/// The floor of all transfers: libcurl on one kept connection, without checking certificates, as the program does.
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
  /// Gets a file and waits until all of it is written to `path`; the reply has no body. Throws unless its status is
  /// 200.
  Reply Download(const std::string& url, const std::string& path);

 private:
  void Perform(const std::string& url);
  void Check(CURLcode code) const;

  CURL* handle_;
  curl_slist* headers_;
};

}  // namespace bench
