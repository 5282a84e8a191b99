#include "tests/support/FaultServer.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <tuple>
#include <unistd.h>
#include <utility>

#include "panel/Certificate.h"

namespace test_servers {
namespace {

sockaddr* AsSocketAddress(sockaddr_in& address) { return reinterpret_cast<sockaddr*>(&address); }

std::pair<int, int> BindToFreePort() {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (bind(socket, AsSocketAddress(address), size) != 0 || getsockname(socket, AsSocketAddress(address), &size) != 0) {
    throw std::runtime_error("no free port");
  }
  return {socket, ntohs(address.sin_port)};
}

/// How many bytes a request has, as far as `bytes` tell: more than they are while the head is not whole.
/// A TLS greeting on a plain wire counts as one: a server that does not speak TLS answers that with an error.
std::size_t SizeOfRequest(const std::string& bytes) {
  if (bytes.starts_with('\x16')) return bytes.size();
  const std::size_t end = bytes.find("\r\n\r\n");
  if (end == std::string::npos) return bytes.size() + 1;
  const std::size_t length = bytes.find("\r\nContent-Length:");
  return end + 4 + (length < end ? std::stoul(bytes.substr(length + 17, 20)) : 0);
}

}  // namespace

std::string Reply(int status, std::string_view body, std::string_view headers) {
  return "HTTP/1.1 " + std::to_string(status) + " Told\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" +
         std::string(headers) + "\r\n" + std::string(body);
}

int UnusedPort() {
  const auto [socket, port] = BindToFreePort();
  close(socket);
  return port;
}

/// The bytes of one connection. The socket stays open, so that its number is not given away, until the server ends.
class FaultServer::Stream {
 public:
  Stream(int socket, SSL_CTX* tls) : socket_(socket), ssl_(tls == nullptr ? nullptr : SSL_new(tls), SSL_free) {}
  bool Open() { return !ssl_ || (SSL_set_fd(ssl_.get(), socket_) == 1 && SSL_accept(ssl_.get()) == 1); }

  std::string ReadRequest() {
    std::string bytes;
    std::array<char, 65536> part{};
    while (bytes.size() < SizeOfRequest(bytes)) {
      const auto count =
          ssl_ ? SSL_read(ssl_.get(), part.data(), part.size()) : read(socket_, part.data(), part.size());
      if (count <= 0) break;
      bytes.append(part.data(), static_cast<std::size_t>(count));
    }
    return bytes;
  }

  bool Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const auto count = ssl_ ? SSL_write(ssl_.get(), bytes.data(), static_cast<int>(bytes.size()))
                              : write(socket_, bytes.data(), bytes.size());
      if (count <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
  }

  void Close() {
    if (ssl_) SSL_shutdown(ssl_.get());
    shutdown(socket_, SHUT_RDWR);
  }

  // Connecting a socket to nowhere resets its connection.
  void Reset() const {
    sockaddr nowhere{};
    nowhere.sa_family = AF_UNSPEC;
    static_cast<void>(connect(socket_, &nowhere, sizeof nowhere));
  }

 private:
  int socket_;
  std::unique_ptr<SSL, decltype(&SSL_free)> ssl_;
};

FaultServer::FaultServer(std::vector<Answer> script, Wire wire, Greeting greeting)
    : script_(std::move(script)), wire_(wire), greeting_(greeting), tls_(nullptr, SSL_CTX_free) {
  std::signal(SIGPIPE, SIG_IGN);
  if (wire == Wire::TLS) {
    const panel::Certificate certificate = panel::MakeSelfSignedCertificate();
    tls_.reset(SSL_CTX_new(TLS_server_method()));
    SSL_CTX_use_certificate(tls_.get(), certificate.x509.get());
    SSL_CTX_use_PrivateKey(tls_.get(), certificate.key.get());
  }
  std::tie(listener_, port_) = BindToFreePort();
  listen(listener_, SOMAXCONN);
  accepting_ = std::thread([this] { Accept(); });
}

FaultServer::~FaultServer() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
  }
  changed_.notify_all();
  shutdown(listener_, SHUT_RDWR);
  accepting_.join();
  for (std::thread& serving : servings_) serving.join();
  for (const int socket : sockets_) close(socket);
  close(listener_);
}

std::string FaultServer::URL() const {
  return (wire_ == Wire::TLS ? "https" : "http") + ("://127.0.0.1:" + std::to_string(port_));
}

std::vector<std::string> FaultServer::Requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

std::size_t FaultServer::Connections() const {
  const std::lock_guard lock(mutex_);
  return sockets_.size();
}

void FaultServer::Release() {
  const std::lock_guard lock(mutex_);
  released_ = true;
  changed_.notify_all();
}

void FaultServer::Accept() {
  for (;;) {
    const int socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0) return;
    const std::lock_guard lock(mutex_);
    sockets_.push_back(socket);
    if (stopping_ || greeting_ == Greeting::Close) shutdown(socket, SHUT_RDWR);
    if (greeting_ == Greeting::Serve) servings_.emplace_back([this, socket] { Serve(socket); });
  }
}

void FaultServer::Serve(int socket) {
  Stream stream(socket, tls_.get());
  if (!stream.Open()) return;
  for (std::string request; !(request = stream.ReadRequest()).empty();) {
    const Answer answer = Next(std::move(request));
    if (!Give(stream, answer)) return;
    if (answer.After == Answer::Then::Close) stream.Close();
    if (answer.After == Answer::Then::Reset) stream.Reset();
  }
}

Answer FaultServer::Next(std::string request) {
  const std::lock_guard lock(mutex_);
  requests_.push_back(std::move(request));
  return script_[std::min(requests_.size(), script_.size()) - 1];
}

bool FaultServer::Give(Stream& stream, const Answer& answer) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return stopping_ || released_ || answer.From == Answer::Start::AtOnce; });
  for (const std::string& piece : answer.Pieces) {
    if (&piece != &answer.Pieces.front()) changed_.wait_for(lock, answer.Pause, [this] { return stopping_; });
    if (stopping_) return false;
    lock.unlock();
    const bool isWritten = stream.Write(piece);
    lock.lock();
    if (!isWritten) return false;
  }
  return true;
}

}  // namespace test_servers
