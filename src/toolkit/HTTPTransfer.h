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

/// Header fields in the order in which they are sent (RFC 9110). Names are case-insensitive.
using HTTPHeaders = std::vector<std::pair<std::string, std::string>>;

/// A predicate: whether a header field has that name.
[[nodiscard]] inline auto IsNamed(std::string_view name) {
  return [name](const auto& field) { return EqualIgnoringCase(field.first, name); };
}

enum class CertificateCheck { Required, Skipped };

/// One HTTP request (RFC 9110), sent exactly as given: once, without redirects, cookies, cache or credentials.
struct HTTPRequest {
  std::string Method;
  std::string URL;
  HTTPHeaders Headers;
  std::string Body;
  CertificateCheck Certificates = CertificateCheck::Required;
  /// The limit for connecting, including name lookup and TLS; the reply has none.
  std::chrono::milliseconds ConnectTimeout = std::chrono::seconds(30);
  /// The time without any activity, including connecting, after which the transfer fails; 0 for no limit.
  std::chrono::milliseconds InactivityTimeout{0};
};

/// Why a transfer failed. No HTTP status is a failure.
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
  /// The network library's description, for the user; may be empty.
  std::string Detail;
};

/// Receives the events of a transfer, on the event loop. Each call may destroy the transfer.
class HTTPTransferEvents {
 public:
  virtual ~HTTPTransferEvents() = default;

  /// Called once, before any body. `length` is the size in bytes of the body, if it was announced.
  virtual void HeadersReceived(int status, HTTPHeaders headers, std::optional<std::uint64_t> length) = 0;
  virtual void BodyReceived(std::string_view bytes) = 0;
  /// `sent` of `total` bytes of the request's body have been sent.
  virtual void BodySent(std::uint64_t sent, std::uint64_t total) = 0;
  /// The whole reply has arrived. No call follows.
  virtual void Finished() = 0;
  /// The transfer has failed. No call follows.
  virtual void Failed(const TransferFailure& failure) = 0;
};

/// A transfer under way. Destroying it stops the calls, but the request is still sent and completed.
class HTTPTransfer {
 public:
  virtual ~HTTPTransfer() = default;
  /// Aborts the transfer at once. No call follows.
  virtual void Abort() = 0;
};

}  // namespace toolkit
