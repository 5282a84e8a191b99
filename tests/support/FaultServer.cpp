#include "tests/support/FaultServer.h"

#include <algorithm>
#include <utility>

#include <QSslKey>
#include <QTimer>

#include "panel/Certificate.h"

namespace test_servers {
namespace {

/// An object of OpenSSL, encoded as DER.
template <typename Thing>
QByteArray Encoded(int (*encode)(const Thing*, unsigned char**), const Thing* thing) {
  QByteArray bytes(encode(thing, nullptr), '\0');
  auto* end = reinterpret_cast<unsigned char*>(bytes.data());
  encode(thing, &end);
  return bytes;
}

struct Identity {
  panel::Certificate Made = panel::MakeSelfSignedCertificate();
  QSslCertificate Certificate{Encoded<X509>(i2d_X509, Made.X509Certificate.get()), QSsl::Der};
  QSslKey Key{Encoded<EVP_PKEY>(i2d_PrivateKey, Made.Key.get()), QSsl::Ec, QSsl::Der};
};

const Identity& OfAllServers() {
  static const Identity identity;
  return identity;
}

void StartTLS(QSslSocket& socket) {
  socket.setLocalCertificate(OfAllServers().Certificate);
  socket.setPrivateKey(OfAllServers().Key);
  socket.startServerEncryption();
}

/// The size of the request in `bytes`; larger than `bytes` while it is incomplete.
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
  QTcpServer server;
  server.listen(QHostAddress::LocalHost);
  return server.serverPort();
}

FaultServer::FaultServer(std::vector<Answer> script, Wire wire, Greeting greeting)
    : script_(std::move(script)), wire_(wire), greeting_(greeting) {
  listen(QHostAddress::LocalHost);
}

std::string FaultServer::Certificate() { return OfAllServers().Certificate.toPem().toStdString(); }

std::string FaultServer::URL() const {
  return (wire_ == Wire::TLS ? "https" : "http") + ("://127.0.0.1:" + std::to_string(Port()));
}

bool FaultServer::IsConnected() const {
  return std::ranges::any_of(sockets_,
                             [](const auto& socket) { return socket->state() != QSslSocket::UnconnectedState; });
}

std::size_t FaultServer::Unsent() const {
  qint64 bytes = 0;
  for (const auto& socket : sockets_) bytes += socket->bytesToWrite() + socket->encryptedBytesToWrite();
  return static_cast<std::size_t>(bytes);
}

void FaultServer::Release() {
  released_ = true;
  for (const auto& answer : std::exchange(waiting_, {})) answer();
}

void FaultServer::incomingConnection(qintptr descriptor) {
  QSslSocket& socket = *sockets_.emplace_back(std::make_unique<QSslSocket>());
  socket.setSocketDescriptor(descriptor);
  if (greeting_ == Greeting::Close) socket.abort();
  if (greeting_ != Greeting::Serve) return;
  connect(&socket, &QSslSocket::readyRead, this,
          [this, &socket, request = std::string()]() mutable { Read(socket, request); });
  if (wire_ == Wire::TLS) StartTLS(socket);
}

void FaultServer::Read(QSslSocket& socket, std::string& request) {
  request += socket.readAll().toStdString();
  if (request.size() < SizeOfRequest(request)) return;
  requests_.push_back(std::exchange(request, {}));
  const Answer& answer = script_[std::min(requests_.size(), script_.size()) - 1];
  if (answer.From == Answer::Start::AtOnce || released_) return Give(socket, answer);
  waiting_.emplace_back([this, &socket, &answer] { Give(socket, answer); });
}

void FaultServer::Give(QSslSocket& socket, const Answer& answer, std::size_t piece) {
  if (piece < answer.Pieces.size())
    socket.write(QByteArray::fromStdString(answer.Pieces[piece]).replace("$", URL().c_str()));
  if (piece + 1 < answer.Pieces.size()) {
    QTimer::singleShot(answer.Pause, &socket, [this, &socket, &answer, piece] { Give(socket, answer, piece + 1); });
    return;
  }
  ++answered_;
  if (answer.After == Answer::Then::Close) socket.disconnectFromHost();
}

}  // namespace test_servers
