#include "toolkit/http/Failures.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

namespace toolkit::http {
namespace {

constexpr long firstRefusal = 300;

struct Row {
  CURLcode Code;
  TransferFault Fault;
};
constexpr std::array<Row, 14> faultsByCode{{
    {CURLE_URL_MALFORMAT, TransferFault::BadURL},
    {CURLE_COULDNT_RESOLVE_PROXY, TransferFault::Proxy},
    {CURLE_PROXY, TransferFault::Proxy},
    {CURLE_COULDNT_RESOLVE_HOST, TransferFault::NameNotFound},
    {CURLE_OPERATION_TIMEDOUT, TransferFault::ConnectTimedOut},
    {CURLE_SSL_CONNECT_ERROR, TransferFault::TLSFailed},
    {CURLE_PEER_FAILED_VERIFICATION, TransferFault::TLSFailed},
    {CURLE_SSL_CACERT_BADFILE, TransferFault::TLSFailed},
    {CURLE_SSL_CIPHER, TransferFault::TLSFailed},
    {CURLE_UNSUPPORTED_PROTOCOL, TransferFault::NotHTTP},  // an answer without an HTTP/1 status line
    {CURLE_WEIRD_SERVER_REPLY, TransferFault::NotHTTP},
    {CURLE_GOT_NOTHING, TransferFault::ClosedEarly},
    {CURLE_PARTIAL_FILE, TransferFault::ClosedEarly},
    {CURLE_SEND_FAIL_REWIND, TransferFault::ClosedEarly},
}};

bool HasOneOf(std::string_view text, std::initializer_list<std::string_view> parts) {
  return std::ranges::any_of(parts, [&](std::string_view part) { return text.find(part) != std::string_view::npos; });
}

TransferFault FaultOfConnecting(int systemError) {
  if (systemError == ECONNREFUSED) return TransferFault::Refused;
  if (systemError == ETIMEDOUT) return TransferFault::ConnectTimedOut;
  return TransferFault::Unreachable;
}

bool IsReset(const CurlFailure& failure) {
  return failure.SystemError == ECONNRESET || HasOneOf(failure.Text, {"SYSCALL", "unexpected eof"});
}

TransferFault FaultOf(const CurlFailure& failure) {
  if (failure.TunnelStatus >= firstRefusal) return TransferFault::Proxy;
  switch (failure.Code) {
    case CURLE_COULDNT_CONNECT:
      return failure.UsesProxy ? TransferFault::Proxy : FaultOfConnecting(failure.SystemError);
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
      return HasOneOf(failure.Text, {"chunk", "headers"}) ? TransferFault::NotHTTP : TransferFault::ClosedEarly;
    case CURLE_SSL_CONNECT_ERROR:
      if (IsReset(failure)) return TransferFault::ClosedEarly;
      break;
    default:
      break;
  }
  const auto* row = std::ranges::find(faultsByCode, failure.Code, &Row::Code);
  return row == faultsByCode.end() ? TransferFault::Other : row->Fault;
}

/// OpenSSL's messages begin with error numbers and library names: the reason follows the last "::".
std::string WithoutNumbers(const std::string& text) {
  const std::size_t end = text.rfind("::");
  return end == std::string::npos ? text : text.substr(end + 2);
}

}  // namespace

FaultAndDetail Explain(const CurlFailure& failure) {
  const TransferFault fault = FaultOf(failure);
  const bool isSystems = fault == TransferFault::Unreachable && failure.SystemError != 0;
  return {.Fault = fault,
          .Detail = isSystems ? std::generic_category().message(failure.SystemError) : WithoutNumbers(failure.Text)};
}

}  // namespace toolkit::http
