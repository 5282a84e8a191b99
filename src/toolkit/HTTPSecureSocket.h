#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "toolkit/Event.h"
#include "toolkit/HTTPSocket.h"
#include "toolkit/StillWanted.h"

namespace toolkit {

/// An HTTP client (RFC 9110) with synchronous and asynchronous requests, one at a time. Redirects are not followed.
///
/// A synchronous call runs the event loop while it waits; handlers may do anything but destroy the socket. Its time-out
/// in seconds restarts with every progress; below 1 there is none. A call that fails, or that is interrupted by the end
/// of the program, returns as if there had been no reply. An asynchronous call reports by the events.
class HTTPSecureSocket : private HTTPSocket {
 public:
  static constexpr int portOfHTTP = 80;
  static constexpr int portOfHTTPS = 443;

  /// Whether the connection uses TLS, and the port for URLs without one.
  bool Secure = true;
  int Port = portOfHTTPS;
  /// Ends a synchronous call early once it returns false.
  StillWanted Wanted;

  /// The asynchronous call failed; see LastErrorCode().
  Event<int> Error;
  /// The asynchronous call has ended: the status and the body of the reply.
  Event<int, const std::string&> PageReceived;
  /// Like PageReceived, for a call whose body was written to a file.
  Event<int, const FolderItem&> DownloadComplete;
  /// The asynchronous call has received headers: the status and the announced length of the body, -1 if unknown.
  Event<int, std::int64_t> HeadersReceived;
  /// The number of bytes received so far and in total, -1 if unknown. Raised by both kinds of calls.
  Event<std::int64_t, std::int64_t> ReceiveProgress;

  HTTPSecureSocket();
  /// Aborts the request under way, since nobody can receive its reply any more.
  ~HTTPSecureSocket() override { Disconnect(); }

  using HTTPSocket::Disconnect;
  using HTTPSocket::IsConnected;
  using HTTPSocket::LargestBody;
  using HTTPSocket::RequestHeader;

  void Get(std::string url) { SendRequest("GET", std::move(url)); }
  void Get(std::string url, const FolderItem& file) { SendRequest("GET", std::move(url), file); }
  void GetHeaders(std::string url) { SendRequest("HEAD", std::move(url)); }
  void SendRequest(std::string_view method, std::string url);
  void SendRequest(std::string_view method, std::string url, const FolderItem& file);

  /// The body of the reply, whatever its status; empty if there is none.
  std::string Get(std::string url, int timeoutSeconds) { return SendRequest("GET", std::move(url), timeoutSeconds); }
  /// Returns whether the whole body is in `file`.
  bool Get(std::string url, const FolderItem& file, int timeoutSeconds) {
    return SendRequest("GET", std::move(url), file, timeoutSeconds);
  }
  /// The headers of the reply, std::nullopt if there was no reply.
  std::optional<InternetHeaders> GetHeaders(std::string url, int timeoutSeconds);
  std::string SendRequest(std::string_view method, std::string url, int timeoutSeconds);
  bool SendRequest(std::string_view method, std::string url, const FolderItem& file, int timeoutSeconds);

  /// The status of the last reply; 0 if there was none.
  [[nodiscard]] int HTTPStatusCode() const { return status_; }
  [[nodiscard]] InternetHeaders PageHeaders() const { return ResponseHeaders(); }
  /// 0 if the last call succeeded, -1 if it timed out, any other number for another failure.
  [[nodiscard]] int LastErrorCode() const;
  /// Whether the last call failed because the body exceeded LargestBody.
  [[nodiscard]] bool WasTooLarge() const { return LastFault() == TransferFault::TooLarge; }
  /// Whether the last call failed because the disk was full.
  [[nodiscard]] bool FoundDiskFull() const { return LastFault() == TransferFault::DiskFull; }

 protected:
  /// May change the URL of a request, and this socket's settings, before the request is sent.
  virtual void Event_BeforeRequest(std::string& url) = 0;
  /// The server requires a name and a password (HTTP Basic, RFC 7617). Return whether they were filled in and the
  /// request is to be repeated; called at most once per request.
  virtual bool Event_AuthenticationRequired(const std::string& realm, const InternetHeaders& headers, std::string& name,
                                            std::string& password) = 0;

 private:
  enum class Report { ByEvents, ToCaller };

  void Start(std::string_view method, std::string url, const FolderItem* file, std::chrono::seconds timeout,
             Report report);
  bool SendAndWait(std::string_view method, std::string url, const FolderItem* file, int timeoutSeconds);
  void Transmit();
  bool SendAgainWithCredentials();

  void Event_Error(const RuntimeException& error) override;
  void Event_FileReceived(const std::string& url, int status, const FolderItem& file) override;
  void Event_HeadersReceived(const std::string& url, int status) override;
  void Event_PageReceived(const std::string& url, int status, std::string content) override;
  void Event_ReceiveProgress(std::uint64_t bytesReceived, std::optional<std::uint64_t> totalBytes) override;
  void Event_SendProgress(std::uint64_t /*bytesSent*/, std::uint64_t /*totalBytes*/) override {}

  std::string method_;
  std::string address_;
  std::optional<FolderItem> file_;
  Report report_ = Report::ByEvents;
  bool authenticated_ = false;
  bool hasReply_ = false;
  int status_ = 0;
  std::string body_;
};

}  // namespace toolkit
