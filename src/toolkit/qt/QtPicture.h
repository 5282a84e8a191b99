#pragma once

#include <QImage>
#include <QPixmap>

#include "toolkit/Picture.h"

namespace toolkit::qt {

/// The picture stretched to `size` pixels, or of its own size if that is empty. Empty if it has none.
[[nodiscard]] QImage ImageOf(const Picture& picture, QSize size = {});

[[nodiscard]] inline QPixmap PixmapOf(const Picture& picture, QSize size = {}) {
  return QPixmap::fromImage(ImageOf(picture, size));
}

}  // namespace toolkit::qt
