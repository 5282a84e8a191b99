#include "toolkit/http/Sockets.h"

#include <array>
#include <ctime>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace toolkit::http {
namespace {

using namespace std::chrono_literals;

constexpr int secondsBeforeProbes = 15;
constexpr int secondsBetweenProbes = 5;
constexpr int mostProbes = 3;
constexpr auto longestSilence = 30s;

void SetOption(int descriptor, int level, int option, int value) {
  setsockopt(descriptor, level, option, &value, sizeof value);
}

tcp_info StateOf(int descriptor) {
  tcp_info info{};
  socklen_t size = sizeof info;
  getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &info, &size);
  return info;
}

bool IsReadable(int descriptor) {
  pollfd entry{.fd = descriptor, .events = POLLIN, .revents = 0};
  return poll(&entry, 1, 0) > 0;
}

int LocalPort(int descriptor) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size);
  const bool isV6 = address.ss_family == AF_INET6;
  return ntohs(isV6 ? reinterpret_cast<const sockaddr_in6&>(address).sin6_port
                    : reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

/// The time since the machine was started, including sleep.
std::chrono::nanoseconds BootTime() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

// The TLS close message of a server is readable data, which libcurl takes for a sign of life. After this it finds the
// end of the stream.
void ShowEnd(int descriptor) {
  std::array<char, 4096> goodbye{};
  while (recv(descriptor, goodbye.data(), goodbye.size(), MSG_DONTWAIT) > 0) {
  }
  shutdown(descriptor, SHUT_RDWR);
}

}  // namespace

Sockets::Sockets(EventLoop& loop, std::function<void(int descriptor, Readiness)> ready)
    : loop_(loop), ready_(std::move(ready)) {}

Sockets::Socket& Sockets::Add(int descriptor, bool isOwn) {
  Socket& socket = sockets_[descriptor];
  socket.IsOwn = isOwn;
  socket.Watch = loop_.Watch(descriptor, [this, descriptor](Readiness readiness) { BeReady(descriptor, readiness); });
  return socket;
}

int Sockets::Open(const curl_sockaddr& address) {
  const int descriptor = socket(address.family, address.socktype | SOCK_CLOEXEC, address.protocol);
  if (descriptor < 0) return -1;
  SetOption(descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
  SetOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE, secondsBeforeProbes);
  SetOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL, secondsBetweenProbes);
  SetOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT, mostProbes);
  Add(descriptor, true);
  return descriptor;
}

void Sockets::Close(int descriptor) {
  const auto known = sockets_.find(descriptor);
  const CURL* user = known->second.User;
  if (user != nullptr && StateOf(descriptor).tcpi_probes >= mostProbes) usersOfSilentOnes_.insert(user);
  sockets_.erase(known);
  close(descriptor);
}

void Sockets::WaitFor(const CURL* user, int descriptor, Readiness readiness) {
  const auto known = sockets_.find(descriptor);
  if (readiness == Readiness::None && (known == sockets_.end() || !known->second.IsOwn)) {
    sockets_.erase(descriptor);
    return;
  }
  Socket& socket = known == sockets_.end() ? Add(descriptor, false) : known->second;
  GiveTo(user, socket);
  socket.WaitsFor = readiness;
  // The next request on the connection waits for the same; until then only the server's close message can arrive.
  const bool isEnough = readiness == Readiness::None && socket.Watched == Readiness::Reading;
  if (!isEnough && socket.Watched != readiness) Watch(socket, readiness);
}

// If two idle connections have the same port, both are marked as used, which is harmless.
void Sockets::Take(const CURL* user, int localPort) {
  for (auto& [descriptor, socket] : sockets_) {
    if (socket.IsOwn && socket.User == nullptr && LocalPort(descriptor) == localPort) GiveTo(user, socket);
  }
}

void Sockets::GiveTo(const CURL* user, Socket& socket) {
  if (socket.User == user) return;
  socket.User = user;
  socket.AnsweredAt = std::chrono::steady_clock::now();
}

void Sockets::Watch(Socket& socket, Readiness readiness) {
  socket.Watched = readiness;
  socket.Watch->WaitFor(readiness);
}

void Sockets::BeReady(int descriptor, Readiness readiness) {
  Socket& socket = sockets_.at(descriptor);
  if (socket.WaitsFor != Readiness::None) {
    ready_(descriptor, readiness);
    return;
  }
  Watch(socket, Readiness::None);
  if (socket.User == nullptr) ShowEnd(descriptor);
}

void Sockets::Release(const CURL* user) {
  usersOfSilentOnes_.erase(user);
  for (auto& [descriptor, socket] : sockets_) {
    if (socket.User != user) continue;
    socket.User = nullptr;
    socket.IdleSince = BootTime();
  }
}

bool Sockets::HasInput(int descriptor) const {
  const auto known = sockets_.find(descriptor);
  if (known == sockets_.end()) return false;
  const Readiness waitsFor = known->second.WaitsFor;
  return (waitsFor == Readiness::Reading || waitsFor == Readiness::Both) && IsReadable(descriptor);
}

void Sockets::RetireDeadOnes() {
  for (const auto& [descriptor, socket] : sockets_) {
    if (socket.User != nullptr || !socket.IsOwn) continue;
    const auto idle = BootTime() - socket.IdleSince;
    const bool isSilent = idle >= std::chrono::seconds(secondsBeforeProbes) && StateOf(descriptor).tcpi_probes > 0;
    if (isSilent || idle >= longestIdle || IsReadable(descriptor)) ShowEnd(descriptor);
  }
}

// TCP_USER_TIMEOUT would also end the wait for a live server that accepts no data for a while. Such a server answers
// the probes.
bool Sockets::HasFallenSilent(const CURL* user) {
  if (usersOfSilentOnes_.contains(user)) return true;
  const auto now = std::chrono::steady_clock::now();
  for (auto& [descriptor, socket] : sockets_) {
    if (socket.User != user || !socket.IsOwn) continue;
    const tcp_info state = StateOf(descriptor);
    const bool waits = state.tcpi_state != TCP_SYN_SENT && (state.tcpi_unacked > 0 || state.tcpi_probes > 1);
    if (!waits || std::chrono::milliseconds(state.tcpi_last_ack_recv) <= pulse) socket.AnsweredAt = now;
    if (now - socket.AnsweredAt >= longestSilence) return true;
  }
  return false;
}

bool Sockets::HasDelivered(const CURL* user) const {
  for (const auto& [descriptor, socket] : sockets_) {
    int unacknowledged = 0;
    if (socket.User == user && ioctl(descriptor, SIOCOUTQ, &unacknowledged) == 0 && unacknowledged > 0) return false;
  }
  return true;
}

}  // namespace toolkit::http
