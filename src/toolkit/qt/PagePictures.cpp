#include "toolkit/qt/PagePictures.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QUrl>

#include "toolkit/HTTPSocket.h"
#include "toolkit/HTTPStatus.h"
#include "toolkit/Picture.h"
#include "toolkit/Text.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t mostAtOnce = 6;
constexpr int mostRedirects = 5;
constexpr std::chrono::seconds longestSilence(30);
constexpr std::uint64_t mostBytes = 24'000'000;
// That is 32 MB of memory.
constexpr std::int64_t mostPixels = 8'000'000;
// Decoding takes about 30 ms, and at most 2 s.
constexpr std::chrono::seconds mostTime(20);

constexpr std::string_view dataScheme = "data:";

bool IsHTTPAddress(const std::string& url) {
  return StartsWithIgnoringCase(url, "http://") || StartsWithIgnoringCase(url, "https://");
}

}  // namespace

/// Loads one picture. It follows a few redirects, and requires a valid certificate for https. The page may destroy it
/// whenever it is called.
class PagePictures::Loader final : private HTTPSocket {
 public:
  Loader(PagePictures& page, std::size_t number) : page_(page), number_(number) {
    LargestBody = Picture::mostBytes;
    InactivityTimeout = longestSilence;
    RequestHeader("Accept", "image/*");
    Send("GET", page.addresses_[number]);
  }
  ~Loader() override { Disconnect(); }

 private:
  void Event_Error(const RuntimeException& error) override { page_.Fail(number_, 0, error.what()); }
  void Event_FileReceived(const std::string& /*url*/, int /*status*/, const FolderItem& /*file*/) override {}
  void Event_HeadersReceived(const std::string& /*url*/, int /*status*/) override { counted_ = 0; }
  void Event_PageReceived(const std::string& url, int status, std::string content) override {
    if (status == HTTPStatus::ok) return page_.Loaded(number_, std::move(content));
    const std::string target =
        FromQt(QUrl(ToQt(url)).resolved(QUrl(ToQt(ResponseHeader("Location")))).toString(QUrl::FullyEncoded));
    if (HTTPStatus::IsRedirect(status) && IsHTTPAddress(target) && redirectsLeft_-- > 0) return Send("GET", target);
    page_.Fail(number_, status, "The server answered with status " + std::to_string(status) + ".");
  }
  // The announced length is charged at once. Otherwise pictures that are loaded at the same time could use up the limit
  // together, and none of them would be complete.
  void Event_ReceiveProgress(std::uint64_t received, std::optional<std::uint64_t> total) override {
    const std::uint64_t expected = std::max(received, total.value_or(0));
    page_.Spend(number_, expected - std::exchange(counted_, expected), received);
  }
  void Event_SendProgress(std::uint64_t /*sent*/, std::uint64_t /*total*/) override {}

  PagePictures& page_;
  std::size_t number_;
  int redirectsLeft_ = mostRedirects;
  std::uint64_t counted_ = 0;
};

PagePictures::PagePictures(std::vector<std::string> addresses, int mostWidth, double pixelsPerPoint, Events events)
    : addresses_(std::move(addresses)),
      mostWidth_(mostWidth),
      pixelsPerPoint_(pixelsPerPoint),
      events_(std::move(events)),
      bytesLeft_(mostBytes),
      pixelsLeft_(mostPixels),
      timeLeft_(mostTime) {
  turn_.setSingleShot(true);
  QObject::connect(&turn_, &QTimer::timeout, [this] { Step(); });
  turn_.start();
}

PagePictures::~PagePictures() = default;

// Does one thing a turn of the event loop, so that the window stays responsive.
void PagePictures::Step() {
  if (!decoder_ && !encoded_.empty()) {
    turn_.start();
    Decode();
  } else if (next_ < addresses_.size() && loaders_.size() + encoded_.size() < mostAtOnce) {
    turn_.start();
    Load(next_++);
  }
}

void PagePictures::Load(std::size_t number) {
  if (IsHTTPAddress(addresses_[number])) {
    loaders_[number] = std::make_unique<Loader>(*this, number);
  } else if (!StartsWithIgnoringCase(addresses_[number], dataScheme)) {
    Fail(number, 0, "Pictures come from http, https and data addresses only.");
  } else if (Spend(number, addresses_[number].size(), 0)) {
    // The address is as long as the picture, and not needed again.
    Loaded(number, std::exchange(addresses_[number], std::string(dataScheme)));
  }
}

/// Charges `bytes` to the page. If they exceed its limit, charges only those that were received, and the picture fails.
bool PagePictures::Spend(std::size_t number, std::uint64_t bytes, std::uint64_t received) {
  const bool isWithin = bytes <= bytesLeft_;
  bytesLeft_ -= isWithin ? bytes : std::min(received, bytesLeft_);
  if (!isWithin) Fail(number, 0, "The pictures of the page are too large together.");
  return isWithin;
}

void PagePictures::Loaded(std::size_t number, std::string encoded) {
  const auto ended = loaders_.extract(number);
  encoded_[number] = std::move(encoded);
  turn_.start();
}

void PagePictures::Decode() {
  const auto first = encoded_.extract(encoded_.begin());
  const std::size_t number = first.key();
  if (timeLeft_.count() <= 0) return Fail(number, 0, "The pictures of the page take too long together.");
  decoding_.start();
  decoder_ = std::make_unique<PictureDecoder>(first.mapped(),
                                              std::max(static_cast<int>(std::lround(mostWidth_ * pixelsPerPoint_)), 1),
                                              [this, number](QImage image) { Decoded(number, std::move(image)); });
}

void PagePictures::Decoded(std::size_t number, QImage image) {
  const auto ended = std::exchange(decoder_, nullptr);
  timeLeft_ -= std::chrono::milliseconds(decoding_.elapsed());
  const std::int64_t pixels = std::int64_t{image.width()} * image.height();
  if (pixels == 0) return Fail(number, 0, "It is no picture that can be shown.");
  if (pixels > pixelsLeft_) return Fail(number, 0, "The pictures of the page have too many pixels together.");
  pixelsLeft_ -= pixels;
  turn_.start();
  QPixmap picture = QPixmap::fromImage(std::move(image));
  picture.setDevicePixelRatio(std::max(static_cast<double>(picture.width()) / mostWidth_, 1.0));
  const auto arrived = events_.Arrived;
  arrived(number, picture);
}

void PagePictures::Fail(std::size_t number, int status, const std::string& why) {
  constexpr std::size_t mostOfAddress = 200;
  const auto ended = loaders_.extract(number);
  turn_.start();
  const auto failed = events_.Failed;
  failed(status, std::string(FirstCharacters(addresses_[number], mostOfAddress)).append(": ").append(why));
}

}  // namespace toolkit::qt
