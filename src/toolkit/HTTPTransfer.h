#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "toolkit/Text.h"

namespace toolkit {

/// Header fields in the order of the wire (RFC 9110). Names compare without regard to case.
using HTTPHeaders = std::vector<std::pair<std::string, std::string>>;

/// A test whether a header field has that name.
[[nodiscard]] inline auto IsNamed(std::string_view name) {
  return [name](const auto& field) { return EqualIgnoringCase(field.first, name); };
}

enum class CertificateCheck { Required, Skipped };

/// One HTTP request (RFC 9110), as the platform sends it: once, without redirects, cookies, cache or credentials.
struct HTTPRequest {
  std::string Method;
  std::string URL;
  HTTPHeaders Headers;
  std::string Body;
  CertificateCheck Certificates = CertificateCheck::Required;
  /// How long connecting may take, name lookup and TLS included; the reply may take as long as it likes.
  std::chrono::milliseconds ConnectTimeout = std::chrono::seconds(30);
  /// How long nothing at all may happen, connecting included, before the transfer fails; 0 sets no limit.
  std::chrono::milliseconds InactivityTimeout{0};
};

/// Why a transfer failed. An HTTP status is no failure.
enum class TransferFault {
  BadURL,
  NameNotFound,
  Refused,
  Unreachable,
  TLSFailed,
  ConnectTimedOut,
  Inactive,
  NoLongerAnswers,
  ClosedEarly,
  NotHTTP,
  Proxy,
  TooLarge,
  FileNotWritten,
  Other,
  DiskFull,
};

struct TransferFailure {
  TransferFault Fault = TransferFault::Other;
  /// The host of the request's URL, without user name, password and port; empty if the URL has none.
  std::string Host;
  /// The port that was tried.
  int Port = 0;
  /// What the network library says, for people; may be empty.
  std::string Detail;
};

/// Receives what happens to a transfer, on the event loop. Any call may destroy the transfer.
class HTTPTransferEvents {
 public:
  virtual ~HTTPTransferEvents() = default;

  /// Once, before any body. `length` is the size in bytes of the body that follows, if it was announced.
  virtual void HeadersReceived(int status, HTTPHeaders headers, std::optional<std::uint64_t> length) = 0;
  virtual void BodyReceived(std::string_view bytes) = 0;
  /// `sent` of `total` bytes of the request's body are on their way.
  virtual void BodySent(std::uint64_t sent, std::uint64_t total) = 0;
  /// The whole reply has arrived. The last call.
  virtual void Finished() = 0;
  /// The reply will never be whole. The last call.
  virtual void Failed(const TransferFailure& failure) = 0;
};

/// A transfer under way. When it is destroyed, no call comes any more, but the request is still sent and carried out.
class HTTPTransfer {
 public:
  virtual ~HTTPTransfer() = default;
  /// Ends the transfer at once, wherever it is. No call comes any more.
  virtual void Abort() = 0;
};

}  // namespace toolkit
