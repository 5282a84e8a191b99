#include "toolkit/http/Exchange.h"

#include <algorithm>
#include <utility>

#include "toolkit/HTTPStatus.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

namespace toolkit::http {
namespace {

// The most that is buffered for a slow listener.
constexpr std::size_t mostKept = std::size_t{1} << 20U;
// The most of a reply that is read without a listener, so that the server can finish and the connection can be kept.
constexpr std::uint64_t mostDropped = std::uint64_t{1} << 20U;
constexpr long firstFinalStatus = 200;

Exchange& Of(void* self) { return *static_cast<Exchange*>(self); }

}  // namespace

Exchange::Exchange(const Curl& curl, HTTPRequest request, SystemProxies& proxies, const Authorities& authorities,
                   HTTPTransferEvents& listener)
    : curl_(curl),
      address_(curl, request.URL),
      easy_(curl, request, address_, proxies.For(address_), authorities),
      listener_(&listener),
      longestSilence_(request.InactivityTimeout),
      lastProgress_(Platform::Current().CountedTime()),
      connectUntil_(lastProgress_ + request.ConnectTimeout),
      requestBody_(std::move(request.Body)),
      requestSize_(requestBody_.size()),
      isHead_(request.Method == "HEAD") {
  SetCallbacks();
}

void Exchange::SetCallbacks() {
  using Bytes = std::string_view;
  for (const CURLoption data :
       {CURLOPT_PRIVATE, CURLOPT_PREREQDATA, CURLOPT_READDATA, CURLOPT_HEADERDATA, CURLOPT_WRITEDATA}) {
    easy_.Set(data, this);
  }
  easy_.Set(
      CURLOPT_PREREQFUNCTION,
      +[](void* self, char*, char*, int, int localPort) { return Of(self).TakeConnection(localPort); });
  easy_.Set(
      CURLOPT_READFUNCTION, +[](char* place, std::size_t size, std::size_t count, void* self) {
        return Of(self).GiveBody(place, size * count);
      });
  easy_.Set(
      CURLOPT_HEADERFUNCTION, +[](char* line, std::size_t size, std::size_t count, void* self) {
        return Of(self).TakeHeader(Bytes(line, size * count));
      });
  easy_.Set(
      CURLOPT_WRITEFUNCTION, +[](char* bytes, std::size_t size, std::size_t count, void* self) {
        return Of(self).TakeBody(Bytes(bytes, size * count));
      });
}

void Exchange::OpenSocketsIn(Sockets& sockets) {
  sockets_ = &sockets;
  easy_.Set(CURLOPT_OPENSOCKETDATA, this);
  easy_.Set(
      CURLOPT_OPENSOCKETFUNCTION,
      +[](void* self, curlsocktype, curl_sockaddr* address) { return Of(self).OpenSocket(*address); });
  easy_.Set(CURLOPT_CLOSESOCKETDATA, sockets_);
  easy_.Set(
      CURLOPT_CLOSESOCKETFUNCTION, +[](void* all, curl_socket_t descriptor) {
        static_cast<Sockets*>(all)->Close(descriptor);
        return 0;
      });
}

std::chrono::milliseconds Exchange::TimeLeft() const {
  return longestSilence_ - (Platform::Current().CountedTime() - lastProgress_);
}

bool Exchange::MayConnectLater(CURLcode code) {
  const auto left = connectUntil_ - Platform::Current().CountedTime();
  if (code != CURLE_OPERATION_TIMEDOUT || hasHadConnection_ || left.count() <= 0) return false;
  easy_.Set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(left.count()));
  return true;
}

void Exchange::NoteProgress() { lastProgress_ = Platform::Current().CountedTime(); }

// When a kept connection breaks, libcurl would repeat the request on another one. But it may have reached the server
// already.
int Exchange::OpenSocket(const curl_sockaddr& address) {
  wasTriedAgain_ = hasHadConnection_;
  return wasTriedAgain_ ? CURL_SOCKET_BAD : sockets_->Open(address);
}

int Exchange::TakeConnection(int localPort) {
  NoteProgress();
  sockets_->Take(easy_.Get(), localPort);
  wasTriedAgain_ = std::exchange(hasHadConnection_, true);
  return wasTriedAgain_ ? CURL_PREREQFUNC_ABORT : CURL_PREREQFUNC_OK;
}

std::size_t Exchange::GiveBody(char* place, std::size_t size) {
  NoteProgress();
  const std::size_t count = std::min<std::size_t>(size, requestSize_ - given_);
  std::copy_n(requestBody_.data() + given_, count, place);
  given_ += count;
  if (given_ == requestSize_) std::string().swap(requestBody_);  // a large body is not kept while waiting for the reply
  return count;
}

std::size_t Exchange::TakeHeader(std::string_view line) {
  NoteProgress();
  const std::size_t size = line.size();
  if (headersAreComplete_) return size;  // a trailer
  const bool isContinued = line.starts_with(' ') || line.starts_with('\t');
  const std::string_view text = Trim(line);
  const std::size_t colon = text.find(':');
  if (text.empty()) {
    headersAreComplete_ = easy_.Information<long>(CURLINFO_RESPONSE_CODE) >= firstFinalStatus;
  } else if (line.starts_with("HTTP/")) {
    headers_.clear();
  } else if (isContinued && !headers_.empty()) {
    headers_.back().second.append(" ").append(text);
  } else if (colon != std::string_view::npos) {
    headers_.emplace_back(Trim(text.substr(0, colon)), Trim(text.substr(colon + 1)));
  }
  return size;
}

std::size_t Exchange::TakeBody(std::string_view bytes) {
  NoteProgress();
  if (listener_ == nullptr) {
    dropped_ += bytes.size();
    return dropped_ <= mostDropped ? bytes.size() : 0;
  }
  isPaused_ = inbox_.size() >= mostKept;
  if (isPaused_) return CURL_WRITEFUNC_PAUSE;
  inbox_ += bytes;
  return bytes.size();
}

std::optional<std::uint64_t> Exchange::AnnouncedLength() const {
  const long status = easy_.Information<long>(CURLINFO_RESPONSE_CODE);
  const auto length = easy_.Information<curl_off_t>(CURLINFO_CONTENT_LENGTH_DOWNLOAD_T);
  if (isHead_ || status == HTTPStatus::noContent || status == HTTPStatus::notModified || length < 0)
    return std::nullopt;
  if (std::ranges::any_of(headers_, IsNamed("Transfer-Encoding"))) return std::nullopt;
  return static_cast<std::uint64_t>(length);
}

void Exchange::End(CURLcode code) {
  hasEnded_ = true;
  patience_.reset();
  if (code != CURLE_OK && sockets_->HasFallenSilent(easy_.Get())) {
    Fail(TransferFault::NoLongerAnswers);
  } else if (wasTriedAgain_ || (code == CURLE_OK && !headersAreComplete_)) {
    Fail(TransferFault::ClosedEarly);
  } else if (code != CURLE_OK) {
    FaultAndDetail why = easy_.WhyFailed(code);
    Fail(why.Fault, std::move(why.Detail));
  }
}

void Exchange::Fail(TransferFault fault, std::string detail) {
  hasEnded_ = true;
  patience_.reset();
  nextAttempt_.reset();
  failure_ = {.Fault = fault, .Host = address_.Host(), .Port = address_.Port(), .Detail = std::move(detail)};
}

bool Exchange::HasNews() const {
  if (listener_ == nullptr || isDelivering_) return false;
  return given_ > givenAndReported_ || headersAreComplete_ > headersAreReported_ || !inbox_.empty() || hasEnded_;
}

bool Exchange::BecomesDue() {
  const Due due = !HasNews() ? Due::Nothing : hasEnded_ ? Due::End : Due::Part;
  if (due <= due_) return false;
  due_ = due;
  return true;
}

void Exchange::Deliver() {
  due_ = Due::Nothing;
  isDelivering_ = true;
  while (listener_ != nullptr && ReportNext()) {
  }
  isDelivering_ = false;
}

/// Returns whether there may be more to report.
bool Exchange::ReportNext() {
  if (given_ > givenAndReported_) {
    givenAndReported_ = given_;
    Platform::Current().Dispatch([this] { listener_->BodySent(givenAndReported_, requestSize_); });
  } else if (headersAreComplete_ && !headersAreReported_) {
    headersAreReported_ = true;
    const auto status = static_cast<int>(easy_.Information<long>(CURLINFO_RESPONSE_CODE));
    Platform::Current().Dispatch(
        [&] { listener_->HeadersReceived(status, std::exchange(headers_, {}), AnnouncedLength()); });
  } else if (!inbox_.empty()) {
    ReportBody();
  } else {
    if (hasEnded_) ReportEnd();
    return false;
  }
  return true;
}

void Exchange::ReportBody() {
  outbox_.swap(inbox_);
  Platform::Current().Dispatch([this] { listener_->BodyReceived(outbox_); });
  outbox_.clear();
  if (std::exchange(isPaused_, false)) curl_.easy_pause(easy_.Get(), CURLPAUSE_CONT);
}

void Exchange::ReportEnd() {
  HTTPTransferEvents& listener = *std::exchange(listener_, nullptr);
  Platform::Current().Dispatch([&] { failure_ ? listener.Failed(*failure_) : listener.Finished(); });
}

void Exchange::RemoveListener() {
  listener_ = nullptr;
  std::string().swap(inbox_);
  if (std::exchange(isPaused_, false) && !hasEnded_) curl_.easy_pause(easy_.Get(), CURLPAUSE_CONT);
}

bool Exchange::HasWritten() const {
  if (hasEnded_ || headersAreComplete_) return true;
  const auto written = static_cast<std::uint64_t>(easy_.Information<curl_off_t>(CURLINFO_SIZE_UPLOAD_T));
  return easy_.Information<long>(CURLINFO_REQUEST_SIZE) > 0 && written >= requestSize_;
}

}  // namespace toolkit::http
