#pragma once

#include <string>

#include "toolkit/HTTPTransfer.h"
#include "toolkit/http/Curl.h"

namespace toolkit::http {

/// libcurl's report of a failed transfer.
struct CurlFailure {
  CURLcode Code = CURLE_OK;
  /// The errno value; 0 if there was none.
  int SystemError = 0;
  std::string Text;
  bool UsesProxy = false;
  /// The status with which a proxy answered the request for a tunnel; 0 if there was none.
  long TunnelStatus = 0;
};

struct FaultAndDetail {
  TransferFault Fault = TransferFault::Other;
  std::string Detail;
};

/// The cause of a failure, and a description for the user.
[[nodiscard]] FaultAndDetail Explain(const CurlFailure& failure);

}  // namespace toolkit::http
