#pragma once

#include <QPixmap>

#include "toolkit/Picture.h"

namespace toolkit::qt {

/// A picture that cannot be decoded comes out empty.
inline QPixmap Decode(const Picture& picture) {
  const auto encoded = picture.Encoded();
  QPixmap decoded;
  decoded.loadFromData(reinterpret_cast<const uchar*>(encoded.data()), static_cast<uint>(encoded.size()));
  return decoded;
}

}  // namespace toolkit::qt
