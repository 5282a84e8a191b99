#pragma once

#include <optional>
#include <span>

#include <QImage>
#include <QPixmap>

#include "toolkit/Picture.h"
#include "toolkit/Size.h"

namespace toolkit::qt {

/// The first picture in `encoded`, stretched to `size` pixels, or of its own size if that is empty. Only pixels are
/// read, never a drawing, which could refer to files. Empty if that is not possible.
[[nodiscard]] QImage Decode(std::span<const std::byte> encoded, QSize size = {});

[[nodiscard]] inline QPixmap Decode(const Picture& picture) { return QPixmap::fromImage(Decode(picture.Encoded())); }

/// The size in pixels that the picture's header tells, or nothing if it has none.
[[nodiscard]] std::optional<Size> SizeOf(std::span<const std::byte> encoded);

}  // namespace toolkit::qt
