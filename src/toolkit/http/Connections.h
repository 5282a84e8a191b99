#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "toolkit/http/Exchange.h"
#include "toolkit/http/Sockets.h"

namespace toolkit::http {

/// libcurl's multi-socket interface on an event loop: runs exchanges, and keeps their connections for later ones.
class Connections {
 public:
  /// `moved` is called on the loop after something may have happened to exchanges.
  Connections(const Curl& curl, EventLoop& loop, std::function<void()> moved);
  Connections(const Connections&) = delete;
  Connections& operator=(const Connections&) = delete;
  ~Connections();

  /// Starts an exchange, which must live until it has ended or is removed. It may end at once, and so may others.
  void Add(Exchange& exchange);
  /// Ends an exchange before its time, and its connection with it.
  void Remove(Exchange& exchange);
  /// Whether the server has not acknowledged for half a minute what was sent. To be asked every Sockets::pulse.
  bool HasFallenSilent(const Exchange& exchange) { return sockets_.HasFallenSilent(exchange.Handle()); }
  /// Whether the server's system has all of the request.
  [[nodiscard]] bool HasDelivered(const Exchange& exchange) const;
  /// Waits until something happens to an exchange, `time` at most, without the loop.
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
