#include "toolkit/qt/PagePictures.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <span>
#include <utility>

#include "toolkit/Text.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/QtPicture.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t mostAtOnce = 6;
constexpr std::uint64_t mostBytesOfOne = 16'000'000;
constexpr std::uint64_t mostBytes = 64'000'000;
// Decoding takes about a second for so many, and showing them 64 MB.
constexpr std::int64_t mostEncodedPixels = 100'000'000;
constexpr std::int64_t mostShownPixels = 16'000'000;
// The user's own events come in between.
constexpr std::chrono::milliseconds pauseBetweenSteps(1);

constexpr std::string_view dataScheme = "data:";

/// The bytes in a data address (RFC 2397); empty if it has none.
QByteArray BytesOf(std::string_view address) {
  const std::size_t comma = address.find(',');
  if (comma == std::string_view::npos) return {};
  const std::string_view type = address.substr(0, comma);
  const std::string_view data = address.substr(comma + 1);
  const QByteArray bytes =
      QByteArray::fromPercentEncoding(QByteArray(data.data(), static_cast<qsizetype>(data.size())));
  return LowerCase(type).ends_with(";base64") ? QByteArray::fromBase64(bytes) : bytes;
}

std::int64_t PixelsOf(QSize size) { return std::int64_t{size.width()} * size.height(); }

std::span<const std::byte> AsBytes(const std::string& text) { return std::as_bytes(std::span(text)); }

}  // namespace

PagePictures::PagePictures(std::vector<std::string> addresses, int mostWidth, double pixelsPerPoint, Events events)
    : addresses_(std::move(addresses)),
      mostWidth_(mostWidth),
      pixelsPerPoint_(pixelsPerPoint),
      events_(std::move(events)),
      bytesLeft_(mostBytes),
      encodedPixelsLeft_(mostEncodedPixels),
      shownPixelsLeft_(mostShownPixels) {
  turn_.setInterval(pauseBetweenSteps);
  QObject::connect(&turn_, &QTimer::timeout, [this] { Step(); });
  turn_.start();
}

PagePictures::~PagePictures() = default;

void PagePictures::Step() {
  if (next_ == addresses_.size()) {
    turn_.stop();
    return;
  }
  if (loaders_.size() == mostAtOnce) return;
  const std::size_t number = next_++;
  if (StartsWithIgnoringCase(addresses_[number], dataScheme)) {
    LoadData(number);
  } else if (IsHTTPAddress(addresses_[number])) {
    LoadByHTTP(number);
  } else {
    Fail(number, 0, "Pictures come from http, https and data addresses only.");
  }
}

void PagePictures::LoadData(std::size_t number) {
  // The address is not needed any more, and as long as the picture.
  const std::string address = std::exchange(addresses_[number], std::string(dataScheme));
  Loaded(number, BytesOf(address).toStdString());
}

void PagePictures::LoadByHTTP(std::size_t number) {
  const std::uint64_t largest = std::min(mostBytesOfOne, bytesLeft_);
  loaders_[number] = std::make_unique<PictureLoader>(
      addresses_[number], largest,
      PictureLoader::Events{
          .Loaded = [this, number](const std::string& encoded) { Loaded(number, encoded); },
          .Failed = [this, number](int status, const std::string& why) { Fail(number, status, why); }});
}

void PagePictures::Loaded(std::size_t number, const std::string& encoded) {
  const std::optional<Size> size = SizeOf(AsBytes(encoded));
  const std::int64_t pixels = size ? std::int64_t{size->Width} * size->Height : 0;
  if (encoded.size() > std::min(mostBytesOfOne, bytesLeft_) ||
      pixels > std::min(Picture::MostPixels, encodedPixelsLeft_)) {
    Fail(number, 0, "The picture, or all of them together, are too large.");
    return;
  }
  bytesLeft_ -= encoded.size();
  encodedPixelsLeft_ -= pixels;
  const QPixmap picture = size ? DecodeToFit(encoded, QSize(size->Width, size->Height)) : QPixmap();
  if (picture.isNull()) {
    Fail(number, 0, "It is no picture that can be shown.");
    return;
  }
  const auto ended = loaders_.extract(number);
  const auto arrived = events_.Arrived;
  arrived(number, picture);
}

QPixmap PagePictures::DecodeToFit(const std::string& encoded, QSize size) {
  QSize points = size;
  if (size.width() > mostWidth_) points = {mostWidth_, std::max(size.height() * mostWidth_ / size.width(), 1)};
  const QSize pixels = (QSizeF(points) * pixelsPerPoint_).toSize().boundedTo(size);
  if (PixelsOf(pixels) > shownPixelsLeft_) return {};
  shownPixelsLeft_ -= PixelsOf(pixels);
  QPixmap picture = QPixmap::fromImage(Decode(AsBytes(encoded), pixels));
  picture.setDevicePixelRatio(static_cast<double>(pixels.width()) / points.width());
  return picture;
}

void PagePictures::Fail(std::size_t number, int status, const std::string& why) {
  constexpr std::size_t mostOfAddress = 200;
  const auto ended = loaders_.extract(number);
  const auto failed = events_.Failed;
  failed(status, std::string(FirstCharacters(addresses_[number], mostOfAddress)).append(": ").append(why));
}

}  // namespace toolkit::qt
