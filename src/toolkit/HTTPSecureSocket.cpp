#include "toolkit/HTTPSecureSocket.h"

#include <algorithm>
#include <utility>

#include "toolkit/HTTPStatus.h"
#include "toolkit/Platform.h"
#include "toolkit/RegEx.h"
#include "toolkit/Text.h"

namespace toolkit {
namespace {

constexpr int timedOutCode = -1;
constexpr int firstFaultCode = 100;

std::int64_t OrUnknown(std::optional<std::uint64_t> length) {
  return length ? static_cast<std::int64_t>(*length) : std::int64_t{-1};
}

/// The URL for this kind of connection: its scheme is replaced, a missing port is added.
std::string AddressOf(std::string_view url, bool secure, int port) {
  url = Trim(url);
  for (const std::string_view scheme : {"https://", "http://"}) {
    if (StartsWithIgnoringCase(url, scheme)) url.remove_prefix(scheme.size());
  }
  const std::size_t hostEnd = std::min(url.find_first_of("/?#"), url.size());
  std::string authority(url.substr(0, hostEnd));
  const std::size_t addressEnd = authority.rfind(']');  // of an IPv6 address, whose colons name no port
  const std::size_t hostStart = addressEnd == std::string::npos ? 0 : addressEnd;
  if (!authority.empty() && authority.find(':', hostStart) == std::string::npos) {
    authority.append(":").append(std::to_string(port));
  }
  return std::string(secure ? "https://" : "http://").append(authority).append(url.substr(hostEnd));
}

}  // namespace

HTTPSecureSocket::HTTPSecureSocket() {
  RequestHeader("Accept", "*/*");
  RequestHeader("Accept-Language", "en");
}

void HTTPSecureSocket::SendRequest(std::string_view method, std::string url) {
  Start(method, std::move(url), nullptr, {}, Report::ByEvents);
}

void HTTPSecureSocket::SendRequest(std::string_view method, std::string url, const FolderItem& file) {
  Start(method, std::move(url), &file, {}, Report::ByEvents);
}

std::optional<InternetHeaders> HTTPSecureSocket::GetHeaders(std::string url, int timeoutSeconds) {
  if (!SendAndWait("HEAD", std::move(url), nullptr, timeoutSeconds)) return std::nullopt;
  return PageHeaders();
}

std::string HTTPSecureSocket::SendRequest(std::string_view method, std::string url, int timeoutSeconds) {
  SendAndWait(method, std::move(url), nullptr, timeoutSeconds);
  return std::exchange(body_, {});
}

bool HTTPSecureSocket::SendRequest(std::string_view method, std::string url, const FolderItem& file,
                                   int timeoutSeconds) {
  return SendAndWait(method, std::move(url), &file, timeoutSeconds);
}

int HTTPSecureSocket::LastErrorCode() const {
  const auto fault = LastFault();
  if (!fault) return 0;
  const bool timedOut = fault == TransferFault::Inactive || fault == TransferFault::ConnectTimedOut;
  return timedOut ? timedOutCode : firstFaultCode + static_cast<int>(*fault);
}

void HTTPSecureSocket::Start(std::string_view method, std::string url, const FolderItem* file,
                             std::chrono::seconds timeout, Report report) {
  Disconnect();
  Event_BeforeRequest(url);
  method_ = method;
  address_ = AddressOf(url, Secure, Port);
  file_ = file == nullptr ? std::nullopt : std::optional(*file);
  report_ = report;
  authenticated_ = false;
  InactivityTimeout = timeout;
  HTTPSocket::RequestHeader("Authorization", "");
  Transmit();
}

void HTTPSecureSocket::Transmit() {
  hasReply_ = false;
  status_ = 0;
  body_.clear();
  if (file_) {
    Send(method_, address_, *file_);
  } else {
    Send(method_, address_);
  }
}

bool HTTPSecureSocket::SendAndWait(std::string_view method, std::string url, const FolderItem* file,
                                   int timeoutSeconds) {
  Start(method, std::move(url), file, std::chrono::seconds(std::max(timeoutSeconds, 0)), Report::ToCaller);
  Platform::Current().RunEventsUntil([this] { return !IsConnected() || !IsWanted(Wanted); });
  Disconnect();
  return hasReply_;
}

// Proxy challenges and other schemes are ordinary replies for the caller.
bool HTTPSecureSocket::SendAgainWithCredentials() {
  if (status_ != HTTPStatus::unauthorized) return false;
  static const RegEx challenge("(?:^|,)\\s*Basic(?:\\s+(?:.*\\brealm=\"([^\"]*)\")?|$)");
  const InternetHeaders headers = PageHeaders();
  const std::string asked = headers.Value("WWW-Authenticate");
  const auto basic = challenge.Search(asked);
  if (!basic || std::exchange(authenticated_, true)) return false;
  std::string name;
  std::string password;
  if (!Event_AuthenticationRequired(std::string(basic->SubExpression(1)), headers, name, password)) return false;
  HTTPSocket::RequestHeader("Authorization", "Basic " + EncodeBase64(name + ":" + password));
  Transmit();
  return true;
}

void HTTPSecureSocket::Event_HeadersReceived(const std::string& /*url*/, int status) {
  status_ = status;
  if (report_ == Report::ByEvents) HeadersReceived(status, OrUnknown(AnnouncedLength()));
}

void HTTPSecureSocket::Event_Error(const RuntimeException& /*error*/) {
  if (report_ == Report::ByEvents) Error(LastErrorCode());
}

void HTTPSecureSocket::Event_FileReceived(const std::string& /*url*/, int status, const FolderItem& file) {
  if (SendAgainWithCredentials()) return;
  hasReply_ = true;
  if (report_ == Report::ByEvents) DownloadComplete(status, file);
}

void HTTPSecureSocket::Event_PageReceived(const std::string& /*url*/, int status, std::string content) {
  if (SendAgainWithCredentials()) return;
  hasReply_ = true;
  body_ = std::move(content);
  if (report_ == Report::ByEvents) PageReceived(status, std::exchange(body_, {}));
}

void HTTPSecureSocket::Event_ReceiveProgress(std::uint64_t bytesReceived, std::optional<std::uint64_t> totalBytes) {
  ReceiveProgress(static_cast<std::int64_t>(bytesReceived), OrUnknown(totalBytes));
}

}  // namespace toolkit
