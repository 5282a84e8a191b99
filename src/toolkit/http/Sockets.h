#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <set>

#include "toolkit/http/Curl.h"
#include "toolkit/http/EventLoop.h"

namespace toolkit::http {

/// The sockets of all connections: how they are opened, what is waited for on them, and whether there still is somebody
/// at their other end.
class Sockets {
 public:
  /// `ready` is called on the loop.
  Sockets(EventLoop& loop, std::function<void(int descriptor, Readiness)> ready);

  /// A new socket that no child process inherits, and on which the system asks a silent peer for a sign of life. -1 if
  /// there can be none.
  int Open(const curl_sockaddr& address);
  void Close(int descriptor);

  /// `user` has the connection that goes out from a port of this machine.
  void Take(const CURL* user, int localPort);
  /// `user` waits for the descriptor, which may be one that was not opened here.
  void WaitFor(const CURL* user, int descriptor, Readiness readiness);
  /// The sockets of `user` are idle from now on.
  void Release(const CURL* user);
  /// Whether a read is waited for and would find something.
  [[nodiscard]] bool HasInput(int descriptor) const;

  /// Makes sure that no idle connection is taken for a living one that has been closed by the server, is a minute old,
  /// or does not answer the system's probes.
  void RetireDeadOnes();
  /// Whether nobody acknowledges data of `user` for half a minute, or the system has broken the connection because its
  /// probes were not answered. To be asked every `pulse`.
  bool HasFallenSilent(const CURL* user);
  static constexpr std::chrono::seconds pulse{5};
  /// How long a connection is kept for the next request.
  static constexpr std::chrono::seconds longestIdle{60};
  /// Whether the other end has all that was written.
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
  std::set<const CURL*> usersOfSilentOnes_;  // which the system has broken
};

}  // namespace toolkit::http
