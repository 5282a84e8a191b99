#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QSslSocket>
#include <QTcpServer>

namespace test_servers {

enum class Wire { TLS, Plain };

/// What the server does with a connection that it accepted: work on it, leave it waiting for ever, or close it.
enum class Greeting { Serve, Silence, Close };

/// What the server does with one request that it has read. Without pieces it says nothing.
struct Answer {
  enum class Then { Keep, Close };
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
/// answer of the script, and so on; the last answer serves all that follow. A "$" in an answer stands for the server's
/// URL. It works while the event loop runs.
class FaultServer final : private QTcpServer {
 public:
  /// The certificate of all such servers, in PEM.
  [[nodiscard]] static std::string Certificate();

  explicit FaultServer(std::vector<Answer> script, Wire wire = Wire::TLS, Greeting greeting = Greeting::Serve);

  /// "https://" or "http://" with address and port, as suits the wire.
  [[nodiscard]] std::string URL() const;
  [[nodiscard]] int Port() const { return serverPort(); }
  /// Every whole request so far, byte for byte, head and body.
  [[nodiscard]] const std::vector<std::string>& Requests() const { return requests_; }
  /// How many of them have got all of their answer.
  [[nodiscard]] std::size_t Answered() const { return answered_; }
  [[nodiscard]] std::size_t Connections() const { return sockets_.size(); }
  /// Whether one of them still stands.
  [[nodiscard]] bool IsConnected() const;
  /// How many bytes of answers nobody has taken yet.
  [[nodiscard]] std::size_t Unsent() const;
  /// Lets the answers go that wait for it, now and from now on.
  void Release();

 private:
  void incomingConnection(qintptr descriptor) override;
  void Read(QSslSocket& socket, std::string& request);
  void Give(QSslSocket& socket, const Answer& answer, std::size_t piece = 0);

  std::vector<Answer> script_;
  Wire wire_;
  Greeting greeting_;
  std::vector<std::string> requests_;
  std::vector<std::function<void()>> waiting_;
  bool released_ = false;
  std::size_t answered_ = 0;
  std::vector<std::unique_ptr<QSslSocket>> sockets_;
};

}  // namespace test_servers
