#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <openssl/ssl.h>

namespace test_servers {

enum class Wire { TLS, Plain };

/// What the server does with a connection that it accepted: work on it, leave it waiting for ever, or close it.
enum class Greeting { Serve, Silence, Close };

/// What the server does with one request that it has read. Without pieces it says nothing.
struct Answer {
  enum class Then { Keep, Close, Reset };
  enum class Start { AtOnce, WhenReleased };

  std::vector<std::string> Pieces;
  Then After = Then::Keep;
  Start From = Start::AtOnce;
  /// Goes by before each piece but the first.
  std::chrono::milliseconds Pause{30};
};

/// A whole reply on a connection that is kept. `headers` are complete lines.
[[nodiscard]] std::string Reply(int status, std::string_view body, std::string_view headers = {});

/// A port of 127.0.0.1 that nobody listens on.
[[nodiscard]] int UnusedPort();

/// An HTTP server on 127.0.0.1 that misbehaves as it is told: the first request, on whatever connection, gets the first
/// answer of the script, and so on; the last answer serves all that follow. Its certificate is signed by itself.
class FaultServer {
 public:
  explicit FaultServer(std::vector<Answer> script, Wire wire = Wire::TLS, Greeting greeting = Greeting::Serve);
  FaultServer(const FaultServer&) = delete;
  FaultServer& operator=(const FaultServer&) = delete;
  ~FaultServer();

  /// "https://" or "http://" with address and port, as suits the wire.
  [[nodiscard]] std::string URL() const;
  [[nodiscard]] int Port() const { return port_; }
  /// Every request so far, byte for byte, head and body; also one that was cut off.
  [[nodiscard]] std::vector<std::string> Requests() const;
  [[nodiscard]] std::size_t Connections() const;
  /// Lets the answers go that wait for it, now and from now on.
  void Release();

 private:
  class Stream;

  void Accept();
  void Serve(int socket);
  Answer Next(std::string request);
  bool Give(Stream& stream, const Answer& answer);

  std::vector<Answer> script_;
  Wire wire_;
  Greeting greeting_;
  std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> tls_;
  int listener_ = -1;
  int port_ = 0;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> requests_;
  std::vector<int> sockets_;
  std::vector<std::thread> servings_;
  bool released_ = false;
  bool stopping_ = false;
  std::thread accepting_;
};

}  // namespace test_servers
