#pragma once

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "toolkit/BinaryStream.h"
#include "toolkit/FolderItem.h"
#include "toolkit/HTTPTransfer.h"
#include "toolkit/InternetHeaders.h"
#include "toolkit/RuntimeException.h"

namespace toolkit {

/// An asynchronous HTTP client (RFC 9110) for one request at a time. A derived class reacts to its Event_ functions,
/// which run on the event loop; any of them may start the next request or destroy the socket.
class HTTPSocket : private HTTPTransferEvents {
 public:
  HTTPSocket() = default;
  HTTPSocket(const HTTPSocket&) = delete;
  HTTPSocket& operator=(const HTTPSocket&) = delete;
  ~HTTPSocket() override = default;

  /// Whether a server must show a certificate that the system trusts. TLS is used either way.
  bool ValidateCertificates = true;
  /// How long a request may go without any progress before it fails; 0 sets no limit but that for connecting.
  std::chrono::milliseconds InactivityTimeout{0};
  /// A reply whose body is longer than this, announced or received, fails before it is held whole.
  std::uint64_t LargestBody = std::numeric_limits<std::uint64_t>::max();

  void ClearRequestHeaders();
  /// The value that was set for a header of the next request; empty if none was.
  [[nodiscard]] std::string RequestHeader(std::string_view name) const;
  /// The empty value takes the header away.
  void RequestHeader(std::string_view name, std::string_view value);
  /// A header of the last reply; empty if it had none of that name.
  [[nodiscard]] std::string ResponseHeader(std::string_view name) const { return responseHeaders_.Value(name); }
  [[nodiscard]] const InternetHeaders& ResponseHeaders() const { return responseHeaders_; }

  /// Makes `data` the body of the next request, and of that one only.
  void SetRequestContent(std::string data, std::string_view mimeType);
  /// Starts a request and returns at once. The reply comes whole, as Event_PageReceived. The request reaches the server
  /// at most once. Of a request that is under way the reply is never delivered; but it is sent and carried out, as it
  /// is if this socket goes.
  void Send(std::string_view method, std::string_view url);
  /// As the other Send, but the reply's body goes to `file` as it arrives, and Event_FileReceived tells its end. The
  /// file is created or emptied when the reply begins; after a failure it holds what had arrived.
  void Send(std::string_view method, std::string_view url, const FolderItem& file);
  /// Ends the request under way, if there is one, wherever it is and without any event.
  void Disconnect();
  /// How long the last reply said that its body is.
  [[nodiscard]] std::optional<std::uint64_t> AnnouncedLength() const { return announcedLength_; }
  /// Whether a request is under way.
  [[nodiscard]] bool IsConnected() const { return transfer_ != nullptr; }
  /// Why the last request failed; nothing if it has not.
  [[nodiscard]] std::optional<TransferFault> LastFault() const { return fault_; }

 protected:
  /// The transfer failed: no reply, or not a whole one. The message tells the host and the kind of failure.
  virtual void Event_Error(const RuntimeException& error) = 0;
  virtual void Event_FileReceived(const std::string& url, int status, const FolderItem& file) = 0;
  virtual void Event_HeadersReceived(const std::string& url, int status) = 0;
  /// The whole reply has arrived, whatever its status.
  virtual void Event_PageReceived(const std::string& url, int status, std::string content) = 0;
  virtual void Event_ReceiveProgress(std::uint64_t bytesReceived, std::optional<std::uint64_t> totalBytes) = 0;
  virtual void Event_SendProgress(std::uint64_t bytesSent, std::uint64_t totalBytes) = 0;

 private:
  void Start(std::string_view method, std::string_view url);
  void LetGo();
  void FailWith(TransferFault fault, const std::string& message);
  void FailAsTooLarge();
  /// Fails if the file has an error. Returns whether it has none.
  bool CheckFile();

  void HeadersReceived(int status, HTTPHeaders headers, std::optional<std::uint64_t> length) override;
  void BodyReceived(std::string_view bytes) override;
  void BodySent(std::uint64_t sent, std::uint64_t total) override;
  void Finished() override;
  void Failed(const TransferFailure& failure) override;

  HTTPHeaders requestHeaders_;
  HTTPHeaders contentHeaders_;
  std::string requestContent_;

  std::string url_;
  int status_ = 0;
  std::optional<TransferFault> fault_;
  InternetHeaders responseHeaders_;
  std::optional<std::uint64_t> announcedLength_;
  std::uint64_t receivedLength_ = 0;
  std::string content_;
  std::optional<FolderItem> file_;
  std::optional<BinaryStream> fileStream_;
  std::unique_ptr<HTTPTransfer> transfer_;
};

}  // namespace toolkit
