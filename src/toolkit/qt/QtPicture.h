#pragma once

#include <optional>
#include <span>

#include <QBuffer>
#include <QImageReader>
#include <QPixmap>

#include "toolkit/Picture.h"
#include "toolkit/Size.h"

namespace toolkit::qt {

/// A picture that cannot be decoded comes out empty.
inline QPixmap Decode(const Picture& picture) {
  const auto encoded = picture.Encoded();
  QPixmap decoded;
  decoded.loadFromData(reinterpret_cast<const uchar*>(encoded.data()), static_cast<uint>(encoded.size()));
  return decoded;
}

/// The size in pixels that the picture's header tells, or nothing if it has none.
inline std::optional<Size> SizeOf(std::span<const std::byte> encoded) {
  QByteArray bytes =
      QByteArray::fromRawData(reinterpret_cast<const char*>(encoded.data()), static_cast<qsizetype>(encoded.size()));
  QBuffer buffer(&bytes);
  const QSize size = QImageReader(&buffer).size();
  if (!size.isValid()) return std::nullopt;
  return Size{.Width = size.width(), .Height = size.height()};
}

}  // namespace toolkit::qt
