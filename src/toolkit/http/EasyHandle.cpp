#include "toolkit/http/EasyHandle.h"

#include <algorithm>

#include "toolkit/Platform.h"
#include "toolkit/Text.h"

namespace toolkit::http {
namespace {

constexpr long sizeOfReads = 256L << 10U;

}  // namespace

EasyHandle::EasyHandle(const Curl& curl, const HTTPRequest& request, const Address& address, const std::string& proxy,
                       const Authorities& authorities)
    : curl_(curl), easy_(curl.easy_init()), usesProxy_(!proxy.empty()) {
  SetConnection(request, address, proxy);
  SetCertificates(request.Certificates, authorities);
  SetMethod(request);
  SetHeaders(request.Headers);
  Set(CURLOPT_ERRORBUFFER, errorText_.data());
}

EasyHandle::~EasyHandle() {
  curl_.easy_cleanup(easy_);
  curl_.slist_free_all(headers_);
}

void EasyHandle::SetConnection(const HTTPRequest& request, const Address& address, const std::string& proxy) {
  Set(CURLOPT_CURLU, address.Handle());
  Set(CURLOPT_PATH_AS_IS, 1L);
  Set(CURLOPT_PROXY, proxy.c_str());
  Set(CURLOPT_NOPROXY, "");  // the environment was considered when the proxy was chosen
  Set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
  Set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  Set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(request.ConnectTimeout.count()));
  Set(CURLOPT_NOSIGNAL, 1L);    // libcurl must not use signals
  Set(CURLOPT_QUICK_EXIT, 1L);  // an abandoned name look-up is not waited for
  Set(CURLOPT_BUFFERSIZE, sizeOfReads);
}

void EasyHandle::SetCertificates(CertificateCheck check, const Authorities& authorities) {
  if (check == CertificateCheck::Skipped) {
    Set(CURLOPT_SSL_VERIFYPEER, 0L);
    Set(CURLOPT_SSL_VERIFYHOST, 0L);
  } else if (authorities.HasAdded()) {
    std::string all = authorities.All();
    curl_blob blob{.data = all.data(), .len = all.size(), .flags = CURL_BLOB_COPY};
    Set(CURLOPT_CAINFO_BLOB, &blob);
  } else if (!authorities.SystemFile().empty()) {
    const bool isFolder = !authorities.SystemFolder().empty();
    Set(CURLOPT_CAINFO, isFolder ? nullptr : authorities.SystemFile().c_str());
    Set(CURLOPT_CAPATH, isFolder ? authorities.SystemFolder().c_str() : nullptr);
  }
}

void EasyHandle::SetMethod(const HTTPRequest& request) {
  if (request.Method == "HEAD") {
    Set(CURLOPT_NOBODY, 1L);
    return;
  }
  if (!request.Body.empty() || request.Method == "POST" || request.Method == "PUT") {
    Set(CURLOPT_POST, 1L);
    Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<long>(request.Body.size()));
  }
  Set(CURLOPT_CUSTOMREQUEST, request.Method.c_str());
}

void EasyHandle::SetHeaders(const HTTPHeaders& headers) {
  const auto add = [this](const std::string& line) { headers_ = curl_.slist_append(headers_, line.c_str()); };
  for (const auto& [name, value] : headers) add(std::string(name).append(": ").append(value));
  add("User-Agent: " + Platform::Current().Program().Name);
  add("Accept-Encoding: identity");
  // A name without a value removes libcurl's own header.
  add("Expect:");
  if (std::ranges::none_of(headers, IsNamed("Accept"))) add("Accept:");
  Set(CURLOPT_HTTPHEADER, headers_);
}

FaultAndDetail EasyHandle::WhyFailed(CURLcode code) const {
  return Explain({.Code = code,
                  .SystemError = static_cast<int>(Information<long>(CURLINFO_OS_ERRNO)),
                  .Text = errorText_.data(),
                  .UsesProxy = usesProxy_,
                  .TunnelStatus = Information<long>(CURLINFO_HTTP_CONNECTCODE)});
}

}  // namespace toolkit::http
