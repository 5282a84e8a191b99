#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "toolkit/Event.h"
#include "toolkit/HTTPSocket.h"
#include "toolkit/StillWanted.h"

namespace toolkit {

/// An HTTP client (RFC 9110) whose requests can be waited for. One request at a time; redirects are not followed.
///
/// A synchronous call runs the event loop while it waits, and handlers may do anything meanwhile but destroy the
/// socket. Its time-out, in seconds, counts from the last progress; one below 1 sets no limit. A call that fails, and
/// one that the end of the program interrupts, returns as if there had been no reply. An asynchronous call reports by
/// the events.
class HTTPSecureSocket : private HTTPSocket {
 public:
  static constexpr int PortOfHTTP = 80;
  static constexpr int PortOfHTTPS = 443;

  /// Whether the connection uses TLS, and the port of a URL that names none.
  bool Secure = true;
  int Port = PortOfHTTPS;
  /// Ends a synchronous call early.
  StillWanted Wanted;

  /// The asynchronous call failed; see LastErrorCode().
  Event<int> Error;
  /// The asynchronous call got a whole reply: its status and body.
  Event<int, const std::string&> PageReceived;
  /// As PageReceived, for a call whose body went to a file.
  Event<int, const FolderItem&> DownloadComplete;
  /// The asynchronous call's reply begins: its status, and how long its body is to be, -1 if that is unknown.
  Event<int, std::int64_t> HeadersReceived;
  /// Bytes received so far, and in all, or -1 if that is unknown. Any call.
  Event<std::int64_t, std::int64_t> ReceiveProgress;

  HTTPSecureSocket();
  /// Ends the request under way: what was only to be fetched is not wanted any more.
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
  /// Whether the whole body is in `file`.
  bool Get(std::string url, const FolderItem& file, int timeoutSeconds) {
    return SendRequest("GET", std::move(url), file, timeoutSeconds);
  }
  /// The headers of the reply, nothing if there was no reply.
  std::optional<InternetHeaders> GetHeaders(std::string url, int timeoutSeconds);
  std::string SendRequest(std::string_view method, std::string url, int timeoutSeconds);
  bool SendRequest(std::string_view method, std::string url, const FolderItem& file, int timeoutSeconds);

  /// The status of the last reply; 0 if there was none.
  [[nodiscard]] int HTTPStatusCode() const { return status_; }
  [[nodiscard]] InternetHeaders PageHeaders() const { return ResponseHeaders(); }
  /// 0 if the last call has not failed, -1 if it timed out, any other number for another failure.
  [[nodiscard]] int LastErrorCode() const;
  /// Whether the last call failed because the body was longer than LargestBody.
  [[nodiscard]] bool WasTooLarge() const { return LastFault() == TransferFault::TooLarge; }
  /// Whether the last call failed because the file had no space left.
  [[nodiscard]] bool FoundDiskFull() const { return LastFault() == TransferFault::DiskFull; }

 protected:
  /// Changes the URL of a request, and this socket's settings, before the request is sent.
  virtual void Event_BeforeRequest(std::string& url) = 0;
  /// The server asks for a name and a password (HTTP's Basic scheme, RFC 7617). Returns whether they were filled in and
  /// the request is to be sent again; asked at most once a request.
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
