#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <set>

#include "toolkit/http/Curl.h"
#include "toolkit/http/EventLoop.h"

namespace toolkit::http {

/// The sockets of all connections: how they are opened, what is waited for, and whether the peer is still alive.
class Sockets {
 public:
  /// `ready` is called on the loop.
  Sockets(EventLoop& loop, std::function<void(int descriptor, Readiness)> ready);

  /// Opens a socket that child processes do not inherit, with TCP keep-alive probes. Returns -1 on failure.
  int Open(const curl_sockaddr& address);
  void Close(int descriptor);

  /// `user` now uses the connection from that local port.
  void Take(const CURL* user, int localPort);
  /// `user` waits for the descriptor, which may have been opened elsewhere.
  void WaitFor(const CURL* user, int descriptor, Readiness readiness);
  /// Marks the sockets of `user` as idle.
  void Release(const CURL* user);
  /// Whether reading is waited for and would not block.
  [[nodiscard]] bool HasInput(int descriptor) const;

  /// Shuts down idle connections that the server has closed, that are a minute old, or whose peer does not answer
  /// probes, so that they are not used again.
  void RetireDeadOnes();
  /// Whether data of `user` has not been acknowledged for half a minute, or the system has broken the connection
  /// because its probes were not answered. Call it every `pulse`.
  bool HasFallenSilent(const CURL* user);
  static constexpr std::chrono::seconds pulse{5};
  /// How long a connection is kept for the next request.
  static constexpr std::chrono::seconds longestIdle{60};
  /// Whether the peer has acknowledged everything that was written.
  [[nodiscard]] bool HasDelivered(const CURL* user) const;

 private:
  struct Socket {
    std::unique_ptr<DescriptorWatch> Watch;
    bool IsOwn = false;
    const CURL* User = nullptr;
    Readiness WaitsFor = Readiness::None;
    Readiness Watched = Readiness::None;
    std::chrono::nanoseconds IdleSince{0};
    std::chrono::steady_clock::time_point AnsweredAt;
  };

  Socket& Add(int descriptor, bool isOwn);
  static void GiveTo(const CURL* user, Socket& socket);
  static void Watch(Socket& socket, Readiness readiness);
  void BeReady(int descriptor, Readiness readiness);

  EventLoop& loop_;
  std::function<void(int descriptor, Readiness)> ready_;
  std::map<int, Socket> sockets_;
  std::set<const CURL*> usersOfSilentOnes_;  // whose connection the system has broken
};

}  // namespace toolkit::http
