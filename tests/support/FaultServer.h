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

/// What the server does with an accepted connection: serve it, keep it open without a word, or close it.
enum class Greeting { Serve, Silence, Close };

/// What the server does with one request that it has read. Without pieces it sends nothing.
struct Answer {
  enum class Then { Keep, Close };
  enum class Start { AtOnce, WhenReleased };

  std::vector<std::string> Pieces;
  Then After = Then::Keep;
  Start From = Start::AtOnce;
  /// The pause before each piece but the first.
  std::chrono::milliseconds Pause{30};
};

/// A complete reply on a connection that stays open. `headers` are complete lines.
[[nodiscard]] std::string Reply(int status, std::string_view body, std::string_view headers = {});

/// A port of 127.0.0.1 that nobody listens on.
[[nodiscard]] int UnusedPort();

/// An HTTP server on 127.0.0.1 that misbehaves as its script says: the first request, on any connection, gets the first
/// answer, and so on; further requests get the last answer. A "$" in an answer stands for the server's URL. It runs on
/// the event loop.
class FaultServer final : private QTcpServer {
 public:
  /// The certificate of all such servers, in PEM.
  [[nodiscard]] static std::string Certificate();

  explicit FaultServer(std::vector<Answer> script, Wire wire = Wire::TLS, Greeting greeting = Greeting::Serve);

  /// "https://" or "http://" with address and port, as suits the wire.
  [[nodiscard]] std::string URL() const;
  [[nodiscard]] int Port() const { return serverPort(); }
  /// Every complete request so far, byte for byte, head and body.
  [[nodiscard]] const std::vector<std::string>& Requests() const { return requests_; }
  /// How many of them have been answered completely.
  [[nodiscard]] std::size_t Answered() const { return answered_; }
  [[nodiscard]] std::size_t Connections() const { return sockets_.size(); }
  /// Whether one of them is still open.
  [[nodiscard]] bool IsConnected() const;
  /// How many bytes of answers have not been sent yet.
  [[nodiscard]] std::size_t Unsent() const;
  /// Sends the answers that wait for it, now and from now on.
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
