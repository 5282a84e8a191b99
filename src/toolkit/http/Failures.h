#pragma once

#include <string>

#include "toolkit/HTTPTransfer.h"
#include "toolkit/http/Curl.h"

namespace toolkit::http {

/// What libcurl says of a transfer that failed.
struct CurlFailure {
  CURLcode Code = CURLE_OK;
  /// The system's error (errno); 0 if it was none.
  int SystemError = 0;
  std::string Text;
  bool UsesProxy = false;
  /// What a proxy answered when it was asked for a tunnel; 0 if none was.
  long TunnelStatus = 0;
};

struct FaultAndDetail {
  TransferFault Fault = TransferFault::Other;
  std::string Detail;
};

/// Why it failed, and what there is to say of that to people.
[[nodiscard]] FaultAndDetail Explain(const CurlFailure& failure);

}  // namespace toolkit::http
