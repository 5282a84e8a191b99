#pragma once

#include <QImage>
#include <QPixmap>

#include "toolkit/Picture.h"

namespace toolkit::qt {

/// The picture scaled to `size` pixels, or in its own size if that is empty. Null if it cannot be decoded.
[[nodiscard]] QImage ImageOf(const Picture& picture, QSize size = {});

[[nodiscard]] inline QPixmap PixmapOf(const Picture& picture, QSize size = {}) {
  return QPixmap::fromImage(ImageOf(picture, size));
}

}  // namespace toolkit::qt
