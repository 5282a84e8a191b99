#include "toolkit/qt/QtPicture.h"

#include <algorithm>
#include <string_view>

#include <QBuffer>
#include <QImageReader>

namespace toolkit::qt {
namespace {

constexpr std::string_view formatsOfPixels[] = {"png", "jpeg", "jpg", "gif", "webp", "bmp", "ico"};

/// Calls `use` with a reader of `encoded`, if that is of a format of pixels.
void Read(std::span<const std::byte> encoded, const auto& use) {
  QByteArray bytes =
      QByteArray::fromRawData(reinterpret_cast<const char*>(encoded.data()), static_cast<qsizetype>(encoded.size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  const QByteArray format = reader.format();
  if (std::ranges::count(formatsOfPixels, std::string_view(format)) > 0) use(reader);
}

}  // namespace

QImage Decode(std::span<const std::byte> encoded, QSize size) {
  QImage decoded;
  Read(encoded, [&](QImageReader& reader) {
    if (!size.isEmpty()) reader.setScaledSize(size);
    decoded = reader.read();
  });
  return decoded;
}

std::optional<Size> SizeOf(std::span<const std::byte> encoded) {
  std::optional<Size> size;
  Read(encoded, [&](const QImageReader& reader) {
    if (reader.size().isValid()) size = {.Width = reader.size().width(), .Height = reader.size().height()};
  });
  return size;
}

}  // namespace toolkit::qt
