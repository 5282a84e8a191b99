#pragma once

#include <string>

#include <httplib.h>

#include "panel/Certificate.h"
#include "panel/Options.h"
#include "panel/Service.h"

namespace panel {

/// Serves a Service over HTTPS and prints one line for each request on the standard output.
class HttpsServer {
 public:
  /// Both must outlive the server. Throws std::runtime_error if the certificate cannot be used.
  HttpsServer(const Options& options, Service& service);

  /// Starts to listen and prints where. Throws std::runtime_error if that address and port cannot be had.
  void Listen();
  /// Serves requests, each connection in a thread of its own. Returns only if listening breaks down.
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
