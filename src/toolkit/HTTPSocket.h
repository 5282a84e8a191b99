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

/// An asynchronous HTTP client (RFC 9110) for one request at a time. A derived class overrides the Event_ functions,
/// which are called on the event loop; each may start the next request or destroy the socket.
class HTTPSocket : private HTTPTransferEvents {
 public:
  HTTPSocket() = default;
  HTTPSocket(const HTTPSocket&) = delete;
  HTTPSocket& operator=(const HTTPSocket&) = delete;
  ~HTTPSocket() override = default;

  /// Whether the server's certificate must be trusted by the system. TLS is used either way.
  bool ValidateCertificates = true;
  /// The time without any progress after which a request fails; 0 for no limit apart from that for connecting.
  std::chrono::milliseconds InactivityTimeout{0};
  /// A reply with a longer body, announced or received, fails early.
  std::uint64_t LargestBody = std::numeric_limits<std::uint64_t>::max();

  void ClearRequestHeaders();
  /// The value set for a header of the next request; empty if none was.
  [[nodiscard]] std::string RequestHeader(std::string_view name) const;
  /// An empty value removes the header.
  void RequestHeader(std::string_view name, std::string_view value);
  /// A header of the last reply; empty if there is none with that name.
  [[nodiscard]] std::string ResponseHeader(std::string_view name) const { return responseHeaders_.Value(name); }
  [[nodiscard]] const InternetHeaders& ResponseHeaders() const { return responseHeaders_; }

  /// Sets the body of the next request only.
  void SetRequestContent(std::string data, std::string_view mimeType);
  /// Starts a request and returns at once. Event_PageReceived receives the whole reply. The request reaches the server
  /// at most once. A previous request that is still running is completed, but its reply is dropped; so is this one if
  /// the socket is destroyed.
  void Send(std::string_view method, std::string_view url);
  /// Like the other Send, but the body is written to `file` as it arrives, and Event_FileReceived reports the end. The
  /// file is created or truncated when the headers arrive; after a failure it holds what had arrived.
  void Send(std::string_view method, std::string_view url, const FolderItem& file);
  /// Aborts the request under way, if there is one, without any event.
  void Disconnect();
  /// The body length that the last reply announced.
  [[nodiscard]] std::optional<std::uint64_t> AnnouncedLength() const { return announcedLength_; }
  /// Whether a request is under way.
  [[nodiscard]] bool IsConnected() const { return transfer_ != nullptr; }
  /// Why the last request failed; std::nullopt if it did not.
  [[nodiscard]] std::optional<TransferFault> LastFault() const { return fault_; }

 protected:
  /// The transfer failed: there is no reply, or an incomplete one. The message names the host and the kind of failure.
  virtual void Event_Error(const RuntimeException& error) = 0;
  virtual void Event_FileReceived(const std::string& url, int status, const FolderItem& file) = 0;
  virtual void Event_HeadersReceived(const std::string& url, int status) = 0;
  /// The whole reply has arrived, whatever its status.
  virtual void Event_PageReceived(const std::string& url, int status, std::string content) = 0;
  virtual void Event_ReceiveProgress(std::uint64_t bytesReceived, std::optional<std::uint64_t> totalBytes) = 0;
  virtual void Event_SendProgress(std::uint64_t bytesSent, std::uint64_t totalBytes) = 0;

 private:
  void Start(std::string_view method, std::string_view url);
  void ReleaseTransfer();
  void FailWith(TransferFault fault, const std::string& message);
  void FailAsTooLarge();
  /// Fails the request if the file has an error. Returns whether it has none.
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
