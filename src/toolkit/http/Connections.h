#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "toolkit/http/Exchange.h"
#include "toolkit/http/Sockets.h"

namespace toolkit::http {

/// libcurl's multi-socket interface on an event loop: runs exchanges, and keeps connections for later ones.
class Connections {
 public:
  /// `moved` is called on the loop after exchanges may have made progress.
  Connections(const Curl& curl, EventLoop& loop, std::function<void()> moved);
  Connections(const Connections&) = delete;
  Connections& operator=(const Connections&) = delete;
  ~Connections();

  /// Starts an exchange, which must live until it has ended or is removed. This and others may end during the call.
  void Add(Exchange& exchange);
  /// Aborts an exchange and closes its connection.
  void Remove(Exchange& exchange);
  /// Whether sent data has not been acknowledged for half a minute. Call it every Sockets::pulse.
  bool HasFallenSilent(const Exchange& exchange) { return sockets_.HasFallenSilent(exchange.Handle()); }
  /// Whether the server's system has acknowledged the whole request.
  [[nodiscard]] bool HasDelivered(const Exchange& exchange) const;
  /// Waits, without the loop, until an exchange makes progress, at most for `time`.
  void Work(std::chrono::milliseconds time);

 private:
  static int WaitForSocket(CURL* easy, curl_socket_t descriptor, int what, void* self, void* unused);
  static int WaitForTime(CURLM* multi, long milliseconds, void* self);
  void Act(int descriptor, Readiness readiness);
  void EndFinished();
  void ConnectLater(Exchange& exchange);

  const Curl& curl_;
  Sockets sockets_;
  std::function<void()> moved_;
  std::unique_ptr<Alarm> alarm_;
  CURLM* multi_;
};

}  // namespace toolkit::http
