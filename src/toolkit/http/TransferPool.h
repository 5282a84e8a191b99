#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/HTTPTransfer.h"
#include "toolkit/http/Authorities.h"
#include "toolkit/http/EventLoop.h"
#include "toolkit/http/SystemProxies.h"

namespace toolkit::http {

class Connections;
class Exchange;

/// All HTTP transfers of the program (RFC 9112), on libcurl. They share connections, which are kept for a minute, but a
/// connection whose certificate was not checked is not used for a request that must check it.
///
/// A request reaches the server at most once. A dead server is detected within 45 s; a slow one is waited for.
class TransferPool {
 public:
  explicit TransferPool(EventLoop& loop);
  TransferPool(const TransferPool&) = delete;
  TransferPool& operator=(const TransferPool&) = delete;
  /// Waits for unsent requests, for two seconds at most. No callback is called any more.
  ~TransferPool();

  /// Sends a request, through the system's proxy. `events` must outlive the result. They are called on the loop, by
  /// Platform::WhenFree.
  std::unique_ptr<HTTPTransfer> Start(HTTPRequest request, HTTPTransferEvents& events);
  /// Also trusts server certificates of this authority. `certificate` is in PEM.
  void Trust(std::string_view certificate) { authorities_.Add(certificate); }

 private:
  class Held;

  std::unique_ptr<HTTPTransfer> Begin(HTTPRequest request, HTTPTransferEvents& events);
  void LimitSilence(Exchange& exchange, std::chrono::milliseconds time);
  void EndIfSilent(Exchange& exchange);
  void Stop(Exchange& exchange, TransferFault fault);
  void Deliver();
  void DeliverFrom(Exchange& exchange);
  void ForgetEnded();
  void DropConnections();
  void CheckServers();
  void SendPendingRequests();

  EventLoop& loop_;
  SystemProxies proxies_;
  Authorities authorities_;
  std::unique_ptr<Connections> connections_;
  std::vector<std::shared_ptr<Exchange>> exchanges_;
  int deliveries_ = 0;
  std::unique_ptr<Alarm> delivery_;
  std::unique_ptr<Alarm> pulse_;
  std::unique_ptr<Alarm> idle_;
};

}  // namespace toolkit::http
