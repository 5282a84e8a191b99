#include "toolkit/http/Address.h"

#include "toolkit/Text.h"

namespace toolkit::http {

Address::Address(const Curl& curl, const std::string& url) : curl_(&curl), url_(curl.url(), curl.url_cleanup) {
  const CURLUcode code = curl.url_set(url_.get(), CURLUPART_URL, url.c_str(),
                                      CURLU_NON_SUPPORT_SCHEME | CURLU_PATH_AS_IS | CURLU_URLENCODE);
  if (code != CURLUE_OK) return;
  for (const CURLUPart part : {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_OPTIONS, CURLUPART_FRAGMENT}) {
    curl.url_set(url_.get(), part, nullptr, 0);
  }
  host_ = Part(CURLUPART_HOST);
  if (host_.starts_with('[')) host_ = host_.substr(1, host_.size() - 2);
  const std::string scheme = Part(CURLUPART_SCHEME);
  isValid_ = (scheme == "http" || scheme == "https") && !host_.empty();
  if (isValid_) port_ = ParseNumber<int>(Part(CURLUPART_PORT)).value_or(0);
}

std::string Address::Part(CURLUPart part) const {
  char* text = nullptr;
  if (curl_->url_get(url_.get(), part, &text, CURLU_DEFAULT_PORT) != CURLUE_OK) return {};
  std::string copy = text;
  curl_->free(text);
  return copy;
}

}  // namespace toolkit::http
