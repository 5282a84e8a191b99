#include "support/CurlConnection.h"

#include <fstream>
#include <stdexcept>

#include "toolkit/HTTPStatus.h"

namespace bench {
namespace {

constexpr long bufferSize = 256L * 1024;

struct Target {
  CURL* Handle;
  CurlConnection::Reply* Reply;
};

std::size_t TakeHeader(const char* /*bytes*/, std::size_t size, std::size_t count, void* target) {
  auto& reply = *static_cast<Target*>(target)->Reply;
  if (reply.HeadersAt == Clock::time_point()) reply.HeadersAt = Clock::now();
  return size * count;
}

std::size_t TakeFile(const char* bytes, std::size_t size, std::size_t count, void* target) {
  auto& file = *static_cast<std::ofstream*>(target);
  return file.write(bytes, static_cast<std::streamsize>(size * count)) ? size * count : 0;
}

std::size_t TakeBody(const char* bytes, std::size_t size, std::size_t count, void* target) {
  const auto& [handle, reply] = *static_cast<Target*>(target);
  curl_off_t announced = 0;
  curl_easy_getinfo(handle, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &announced);
  if (reply->Body.empty() && announced > 0) reply->Body.reserve(static_cast<std::size_t>(announced));
  reply->Body.append(bytes, size * count);
  return size * count;
}

}  // namespace

CurlConnection::CurlConnection()
    : handle_(curl_easy_init()), headers_(curl_slist_append(nullptr, "Content-Type: application/json")) {
  if (handle_ == nullptr || headers_ == nullptr) throw std::runtime_error("libcurl does not start");
  // Otherwise libcurl sends "Expect: 100-continue" before a large body, and waits a second for the answer.
  headers_ = curl_slist_append(headers_, "Expect:");
  Check(curl_easy_setopt(handle_, CURLOPT_HTTPHEADER, headers_));
  Check(curl_easy_setopt(handle_, CURLOPT_SSL_VERIFYPEER, 0L));
  Check(curl_easy_setopt(handle_, CURLOPT_SSL_VERIFYHOST, 0L));
  Check(curl_easy_setopt(handle_, CURLOPT_PROXY, ""));
  Check(curl_easy_setopt(handle_, CURLOPT_BUFFERSIZE, bufferSize));
  Check(curl_easy_setopt(handle_, CURLOPT_HEADERFUNCTION, TakeHeader));
}

CurlConnection::~CurlConnection() {
  curl_easy_cleanup(handle_);
  curl_slist_free_all(headers_);
}

CurlConnection::Reply CurlConnection::Post(const std::string& url, const std::string& body) {
  Reply reply;
  Target target{.Handle = handle_, .Reply = &reply};
  Check(curl_easy_setopt(handle_, CURLOPT_POSTFIELDS, body.c_str()));
  Check(curl_easy_setopt(handle_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size())));
  Check(curl_easy_setopt(handle_, CURLOPT_HEADERDATA, &target));
  Check(curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, TakeBody));
  Check(curl_easy_setopt(handle_, CURLOPT_WRITEDATA, &target));
  Perform(url);
  return reply;
}

CurlConnection::Reply CurlConnection::Download(const std::string& url, const std::string& path) {
  Reply reply;
  Target target{.Handle = handle_, .Reply = &reply};
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  Check(curl_easy_setopt(handle_, CURLOPT_HTTPGET, 1L));
  Check(curl_easy_setopt(handle_, CURLOPT_HEADERDATA, &target));
  Check(curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, TakeFile));
  Check(curl_easy_setopt(handle_, CURLOPT_WRITEDATA, &file));
  Perform(url);
  file.close();
  if (file.fail()) throw std::runtime_error(path + " cannot be written");
  return reply;
}

void CurlConnection::Perform(const std::string& url) {
  Check(curl_easy_setopt(handle_, CURLOPT_URL, url.c_str()));
  Check(curl_easy_perform(handle_));
  long status = 0;
  Check(curl_easy_getinfo(handle_, CURLINFO_RESPONSE_CODE, &status));
  if (status != toolkit::HTTPStatus::ok)
    throw std::runtime_error("the service answered " + std::to_string(status) + " for " + url);
}

void CurlConnection::Check(CURLcode code) const {
  if (code != CURLE_OK) throw std::runtime_error(std::string("libcurl: ") + curl_easy_strerror(code));
}

}  // namespace bench
