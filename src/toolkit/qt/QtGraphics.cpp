#include "toolkit/qt/QtGraphics.h"

#include <algorithm>
#include <utility>

#include <QPainter>

#include "toolkit/qt/QtPicture.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t mostDrawn = 4;

}  // namespace

QPixmap DrawnPictures::Find(const std::shared_ptr<const Picture>& picture, QSize size) {
  std::erase_if(drawn_, [](const Drawn& drawn) { return drawn.Picture.expired(); });
  auto place = std::find_if(drawn_.begin(), drawn_.end(),
                            [&](const Drawn& drawn) { return drawn.Picture.lock() == picture && drawn.Size == size; });
  if (place == drawn_.end()) {
    if (drawn_.size() == mostDrawn) drawn_.erase(drawn_.begin());
    drawn_.push_back({picture, size, PixmapOf(*picture, size)});
  } else {
    std::rotate(place, place + 1, drawn_.end());
  }
  return drawn_.back().Pixels;
}

QtGraphics::QtGraphics(QPainter& painter, QSize size, DrawnPictures& pictures)
    : painter_(painter), size_(size), pictures_(pictures) {}

void QtGraphics::DrawPicture(const std::shared_ptr<const Picture>& picture, Rect destination) {
  const QRect place(destination.Left, destination.Top, destination.Width, destination.Height);
  if (!picture || place.isEmpty()) return;
  const qreal pixelsPerPoint = painter_.device()->devicePixelRatioF();
  const QSize pixels = (QSizeF(place.size()) * pixelsPerPoint).toSize();
  painter_.setOpacity(1 - std::clamp(picture->Transparency(), 0.0, 100.0) / 100);
  painter_.drawPixmap(place, pictures_.Find(picture, pixels));
  painter_.setOpacity(1);
}

// Four filled bars, since half of a line drawn by Qt is outside its rectangle.
void QtGraphics::DrawRect(Rect place) {
  const QRect outer(place.Left, place.Top, place.Width, place.Height);
  const QRect inner = outer.adjusted(PenWidth, PenHeight, -PenWidth, -PenHeight);
  for (const QRect& part : QRegion(outer) - QRegion(inner)) painter_.fillRect(part, QColor::fromRgb(ForeColor));
}

}  // namespace toolkit::qt
