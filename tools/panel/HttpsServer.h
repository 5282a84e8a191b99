#pragma once

#include <string>

#include <httplib.h>

#include "panel/Certificate.h"
#include "panel/Options.h"
#include "panel/Service.h"

namespace panel {

/// Serves a Service over HTTPS and prints one line per request on standard output.
class HttpsServer {
 public:
  /// Both must outlive the server. Throws std::runtime_error if the certificate is unusable.
  HttpsServer(const Options& options, Service& service);

  /// Starts to listen and prints the address. Throws std::runtime_error if the address or port is not available.
  void Listen();
  /// Serves requests, each connection in its own thread. Returns only if listening fails.
  void Serve();

 private:
  void SetUpConnections();
  void SetUpReplies();

  const Options& options_;
  Service& service_;
  Certificate certificate_;
  httplib::SSLServer server_;
  socket_t listeningSocket_ = INVALID_SOCKET;
};

}  // namespace panel
