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

/// All HTTP transfers of the program (RFC 9112), on libcurl. They keep their connections for a minute and share them,
/// but none whose certificate was not checked with a request that must check.
///
/// A request reaches the server at most once. A server that is gone is told within 45 s; one that lives is waited for.
class TransferPool {
 public:
  explicit TransferPool(EventLoop& loop);
  TransferPool(const TransferPool&) = delete;
  TransferPool& operator=(const TransferPool&) = delete;
  /// Lets every request go out that is still to be sent, for two seconds at most. No call comes any more.
  ~TransferPool();

  /// Sends a request, by way of the system's proxy. `events` must outlive the result. The calls come on the loop, by
  /// Platform::WhenFree.
  std::unique_ptr<HTTPTransfer> Start(HTTPRequest request, HTTPTransferEvents& events);
  /// Trusts servers with certificates of this authority from now on. `certificate` is in PEM.
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
  void LetRequestsOut();

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
