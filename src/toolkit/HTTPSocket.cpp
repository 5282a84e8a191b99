#include "toolkit/HTTPSocket.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "toolkit/Platform.h"
#include "toolkit/Text.h"
#include "toolkit/TransferMessages.h"

namespace toolkit {
namespace {

// A server may announce any length, so no more than this is reserved.
constexpr std::uint64_t largestReserve = std::uint64_t{256} << 20U;

}  // namespace

void HTTPSocket::ClearRequestHeaders() { requestHeaders_.clear(); }

std::string HTTPSocket::RequestHeader(std::string_view name) const {
  const auto header = std::ranges::find_if(requestHeaders_, IsNamed(name));
  return header == requestHeaders_.end() ? std::string() : header->second;
}

void HTTPSocket::RequestHeader(std::string_view name, std::string_view value) {
  const auto header = std::ranges::find_if(requestHeaders_, IsNamed(name));
  if (value.empty()) {
    if (header != requestHeaders_.end()) requestHeaders_.erase(header);
  } else if (header == requestHeaders_.end()) {
    requestHeaders_.emplace_back(name, value);
  } else {
    header->second = value;
  }
}

void HTTPSocket::SetRequestContent(std::string data, std::string_view mimeType) {
  requestContent_ = std::move(data);
  contentHeaders_ = {{"Content-Type", std::string(mimeType)}};
}

void HTTPSocket::Send(std::string_view method, std::string_view url) {
  file_.reset();
  Start(method, url);
}

void HTTPSocket::Send(std::string_view method, std::string_view url, const FolderItem& file) {
  file_ = file;
  Start(method, url);
}

void HTTPSocket::Disconnect() {
  if (transfer_) transfer_->Abort();
  ReleaseTransfer();
}

void HTTPSocket::ReleaseTransfer() {
  transfer_.reset();
  fileStream_.reset();
}

void HTTPSocket::Start(std::string_view method, std::string_view url) {
  ReleaseTransfer();
  url_ = url;
  status_ = 0;
  fault_.reset();
  responseHeaders_ = InternetHeaders();
  announcedLength_.reset();
  receivedLength_ = 0;
  content_ = std::string();

  HTTPRequest request;
  request.Method = method;
  request.URL = url;
  request.Headers = requestHeaders_;
  std::ranges::move(std::exchange(contentHeaders_, {}), std::back_inserter(request.Headers));
  request.Body = std::exchange(requestContent_, {});
  request.Certificates = ValidateCertificates ? CertificateCheck::Required : CertificateCheck::Skipped;
  request.InactivityTimeout = InactivityTimeout;
  transfer_ = Platform::Current().StartTransfer(std::move(request), *this);
}

void HTTPSocket::HeadersReceived(int status, HTTPHeaders headers, std::optional<std::uint64_t> length) {
  status_ = status;
  responseHeaders_ = InternetHeaders(std::move(headers));
  announcedLength_ = length;
  if (length.value_or(0) > LargestBody) {
    FailAsTooLarge();
    return;
  }
  if (file_) fileStream_.emplace(*file_);
  if (!CheckFile()) return;
  if (!file_ && length) content_.reserve(std::min(*length, largestReserve));
  Event_HeadersReceived(std::string(url_), status);
}

void HTTPSocket::BodyReceived(std::string_view bytes) {
  receivedLength_ += bytes.size();
  if (receivedLength_ > LargestBody) {
    FailAsTooLarge();
    return;
  }
  if (fileStream_) {
    fileStream_->Write(bytes);
    if (!CheckFile()) return;
  } else {
    content_ += bytes;
  }
  Event_ReceiveProgress(receivedLength_, announcedLength_);
}

void HTTPSocket::BodySent(std::uint64_t sent, std::uint64_t total) { Event_SendProgress(sent, total); }

void HTTPSocket::Finished() {
  const auto ended = std::exchange(transfer_, nullptr);
  // The handler may start the next request or destroy the socket, so it gets copies.
  const std::string url = url_;
  if (!file_) {
    Event_PageReceived(url, status_, std::move(content_));
    return;
  }
  const FolderItem file = *file_;
  fileStream_->Close();
  if (!CheckFile()) return;
  fileStream_.reset();
  Event_FileReceived(url, status_, file);
}

void HTTPSocket::Failed(const TransferFailure& failure) { FailWith(failure.Fault, DescribeFailure(failure)); }

bool HTTPSocket::CheckFile() {
  const int error = fileStream_ ? fileStream_->LastErrorCode() : 0;
  if (error == 0) return true;
  FailWith(
      IsDiskFull(error) ? TransferFault::DiskFull : TransferFault::FileNotWritten,
      "The file " + file_->Path().string() + " could not be written: " + std::generic_category().message(error) + ".");
  return false;
}

void HTTPSocket::FailAsTooLarge() {
  FailWith(TransferFault::TooLarge, "The reply is larger than " + std::to_string(LargestBody) + " bytes.");
}

void HTTPSocket::FailWith(TransferFault fault, const std::string& message) {
  fault_ = fault;
  Disconnect();
  content_ = std::string();
  Event_Error(RuntimeException(message));
}

}  // namespace toolkit
