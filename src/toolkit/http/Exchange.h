#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "toolkit/HTTPTransfer.h"
#include "toolkit/Timer.h"
#include "toolkit/http/EasyHandle.h"
#include "toolkit/http/Sockets.h"
#include "toolkit/http/SystemProxies.h"

namespace toolkit::http {

/// One request and its reply. What arrives is buffered, up to a limit, until it is delivered, so that no handler runs
/// inside libcurl.
class Exchange final {
 public:
  Exchange(const Curl& curl, HTTPRequest request, SystemProxies& proxies, const Authorities& authorities,
           HTTPTransferEvents& listener);
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  [[nodiscard]] CURL* Handle() const { return easy_.Get(); }
  /// Whether the URL names a server.
  [[nodiscard]] bool IsPossible() const { return address_.IsValid(); }
  /// Opens its sockets in `sockets`, which must outlive the connections.
  void OpenSocketsIn(Sockets& sockets);
  /// The time until the request has been inactive for too long; not above 0 if there is no limit.
  [[nodiscard]] std::chrono::milliseconds TimeLeft() const;
  /// Keeps `patience` until the exchange has ended.
  void LimitSilence(std::unique_ptr<PlatformTimer> patience) { patience_ = std::move(patience); }
  /// Whether libcurl, which does not know of dialogs, has ended the attempt to connect too early. Sets the remaining
  /// time for the next attempt.
  bool MayConnectLater(CURLcode code);
  /// Keeps `start` until the exchange has ended.
  void StartNextAttemptBy(std::unique_ptr<PlatformTimer> start) { nextAttempt_ = std::move(start); }

  /// libcurl has ended the transfer with `code`. Its callbacks are not called any more.
  void End(CURLcode code);
  void Fail(TransferFault fault, std::string detail = {});
  [[nodiscard]] bool HasEnded() const { return hasEnded_; }
  /// Whether a reply has begun or will never arrive.
  [[nodiscard]] bool HasReplied() const { return headersAreComplete_ || hasEnded_; }
  /// Whether it is paused because its listener has not received the buffered data yet.
  [[nodiscard]] bool IsHeldUp() const { return isPaused_; }

  /// Whether Deliver() must be called: true once for the first news since its last call, and once for the end.
  bool BecomesDue();
  /// Reports all news to the listener. Keep a reference to the exchange: a handler may release it, and may wait while
  /// more arrives.
  void Deliver();
  /// Whether Deliver() would report something.
  [[nodiscard]] bool HasNews() const;
  /// Removes the listener. The request is still sent, and its reply is read and dropped.
  void RemoveListener();
  /// Whether the whole request has been written to the socket.
  [[nodiscard]] bool HasWritten() const;

 private:
  enum class Due { Nothing, Part, End };

  void SetCallbacks();
  void NoteProgress();
  // libcurl's callbacks; each returns the value that libcurl defines.
  int OpenSocket(const curl_sockaddr& address);
  int TakeConnection(int localPort);
  std::size_t GiveBody(char* place, std::size_t size);
  std::size_t TakeHeader(std::string_view line);
  std::size_t TakeBody(std::string_view bytes);
  [[nodiscard]] std::optional<std::uint64_t> AnnouncedLength() const;

  bool ReportNext();
  void ReportBody();
  void ReportEnd();

  const Curl& curl_;
  Address address_;
  EasyHandle easy_;
  HTTPTransferEvents* listener_;
  std::unique_ptr<PlatformTimer> patience_;
  std::unique_ptr<PlatformTimer> nextAttempt_;
  // In terms of Platform::CountedTime().
  std::chrono::milliseconds longestSilence_;
  std::chrono::milliseconds lastProgress_;
  std::chrono::milliseconds connectUntil_;

  std::string requestBody_;
  std::uint64_t requestSize_;
  std::uint64_t given_ = 0;
  std::uint64_t givenAndReported_ = 0;
  Sockets* sockets_ = nullptr;
  bool hasHadConnection_ = false;
  bool wasTriedAgain_ = false;

  bool isHead_;
  HTTPHeaders headers_;
  bool headersAreComplete_ = false;
  bool headersAreReported_ = false;
  std::string inbox_;
  std::string outbox_;  // what is being delivered
  std::uint64_t dropped_ = 0;
  bool isPaused_ = false;

  Due due_ = Due::Nothing;
  bool isDelivering_ = false;
  bool hasEnded_ = false;
  std::optional<TransferFailure> failure_;
};

}  // namespace toolkit::http
