#include "toolkit/qt/PictureLoader.h"

#include <chrono>
#include <utility>

#include <QUrl>

#include "toolkit/Text.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr int mostRedirects = 5;
constexpr std::chrono::seconds longestSilence(30);
constexpr int statusOK = 200;

bool IsRedirect(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

}  // namespace

PictureLoader::PictureLoader(const std::string& url, std::uint64_t largest, Events events)
    : events_(std::move(events)), redirectsLeft_(mostRedirects) {
  LargestBody = largest;
  InactivityTimeout = longestSilence;
  RequestHeader("Accept", "image/*");
  Send("GET", url);
}

// The handlers may destroy this object, so they are not called in place.
void PictureLoader::Event_Error(const RuntimeException& error) {
  const auto failed = events_.Failed;
  failed(0, error.what());
}

void PictureLoader::Event_PageReceived(const std::string& url, int status, std::string content) {
  const Events events = events_;
  if (status == statusOK) {
    events.Loaded(std::move(content));
    return;
  }
  const std::string target =
      FromQt(QUrl(ToQt(url)).resolved(QUrl(ToQt(ResponseHeader("Location")))).toString(QUrl::FullyEncoded));
  if (IsRedirect(status) && IsHTTPAddress(target) && redirectsLeft_-- > 0) {
    Send("GET", target);
  } else {
    events.Failed(status, "The server answered with status " + std::to_string(status) + ".");
  }
}

bool IsHTTPAddress(const std::string& url) {
  return StartsWithIgnoringCase(url, "http://") || StartsWithIgnoringCase(url, "https://");
}

}  // namespace toolkit::qt
