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

/// One request and its reply. What arrives is kept, within bounds, until it is delivered, so that no handler runs
/// inside libcurl.
class Exchange final {
 public:
  Exchange(const Curl& curl, HTTPRequest request, SystemProxies& proxies, const Authorities& authorities,
           HTTPTransferEvents& listener);
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  [[nodiscard]] CURL* Handle() const { return easy_.Get(); }
  /// Whether there is a server to ask.
  [[nodiscard]] bool IsPossible() const { return address_.IsValid(); }
  /// Its sockets come from `sockets`, which must outlive the connections.
  void OpenSocketsIn(Sockets& sockets);
  /// How long nothing at all may happen from now on; not above 0 if there is no limit.
  [[nodiscard]] std::chrono::milliseconds TimeLeft() const;
  /// `patience` runs until the exchange has ended.
  void LimitSilence(std::unique_ptr<PlatformTimer> patience) { patience_ = std::move(patience); }
  /// Whether libcurl, which does not know of dialogs, ended the attempt to connect before its time. It has the rest of
  /// the time for the next one.
  bool MayConnectLater(CURLcode code);
  /// `start` runs until the exchange has ended.
  void StartNextAttemptBy(std::unique_ptr<PlatformTimer> start) { nextAttempt_ = std::move(start); }

  /// What libcurl says of its end. Nothing is taken or given any more.
  void End(CURLcode code);
  void Fail(TransferFault fault, std::string detail = {});
  [[nodiscard]] bool HasEnded() const { return hasEnded_; }
  /// Whether a reply has begun or will never come.
  [[nodiscard]] bool HasReplied() const { return headersAreComplete_ || hasEnded_; }
  /// Whether its listener keeps it from going on.
  [[nodiscard]] bool IsHeldUp() const { return isPaused_; }

  /// Whether Deliver() is to be called: true once for the first news since its last call, and once for the end.
  bool BecomesDue();
  /// Tells the listener all that there is to tell. Hold the exchange: a handler may let go of it, and wait while more
  /// arrives.
  void Deliver();
  /// Whether Deliver() would tell something.
  [[nodiscard]] bool HasNews() const;
  /// Nobody listens any more. The request still goes out, and its reply is read and dropped.
  void LetGo();
  /// Whether all of the request has been handed to the system.
  [[nodiscard]] bool HasWritten() const;

 private:
  enum class Due { Nothing, Part, End };

  void SetCallbacks();
  void NoteProgress();
  // libcurl's callbacks; each returns what libcurl wants.
  int OpenSocket(const curl_sockaddr& address);
  int TakeConnection(int localPort);
  std::size_t GiveBody(char* place, std::size_t size);
  std::size_t TakeHeader(std::string_view line);
  std::size_t TakeBody(std::string_view bytes);
  [[nodiscard]] std::optional<std::uint64_t> AnnouncedLength() const;

  bool TellNext();
  void TellBody();
  void TellEnd();

  const Curl& curl_;
  Address address_;
  EasyHandle easy_;
  HTTPTransferEvents* listener_;
  std::unique_ptr<PlatformTimer> patience_;
  std::unique_ptr<PlatformTimer> nextAttempt_;
  // Of Platform::CountedTime().
  std::chrono::milliseconds longestSilence_;
  std::chrono::milliseconds lastProgress_;
  std::chrono::milliseconds connectUntil_;

  std::string requestBody_;
  std::uint64_t requestSize_;
  std::uint64_t given_ = 0;
  std::uint64_t givenAndTold_ = 0;
  Sockets* sockets_ = nullptr;
  bool hasHadConnection_ = false;
  bool wasTriedAgain_ = false;

  bool isHead_;
  HTTPHeaders headers_;
  bool headersAreComplete_ = false;
  bool headersAreTold_ = false;
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
