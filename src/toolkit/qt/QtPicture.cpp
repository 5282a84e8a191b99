#include "toolkit/qt/QtPicture.h"

#include <QBuffer>
#include <QImageReader>

namespace toolkit::qt {
namespace {

QImage Decode(std::span<const std::byte> encoded, QSize size) {
  QByteArray bytes =
      QByteArray::fromRawData(reinterpret_cast<const char*>(encoded.data()), static_cast<qsizetype>(encoded.size()));
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer, "png");
  if (!size.isEmpty()) reader.setScaledSize(size);
  return reader.read();
}

}  // namespace

QImage ImageOf(const Picture& picture, QSize size) {
  if (!picture.Encoded().empty()) return Decode(picture.Encoded(), size);
  const auto& [own, colors] = picture.Pixels();
  const QImage image(reinterpret_cast<const uchar*>(colors.data()), own.Width, own.Height,
                     QImage::Format_ARGB32_Premultiplied);
  if (size.isEmpty() || size == image.size()) return image.copy();
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace toolkit::qt
