#include "toolkit/qt/CanvasView.h"

#include <QPainter>

namespace toolkit::qt {

CanvasView::CanvasView(Canvas& canvas, QWidget& parent) : ViewOf(canvas, parent) { CanvasView::Refresh(); }

void CanvasView::Refresh() {
  ShowCommonProperties(*this, Shown());
  backdrop_ = QPixmap();
  if (const auto& picture = Shown().Backdrop()) {
    const auto encoded = picture->Encoded();
    backdrop_.loadFromData(reinterpret_cast<const uchar*>(encoded.data()), static_cast<uint>(encoded.size()));
  }
  update();
}

void CanvasView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(0, 0, backdrop_);
}

}  // namespace toolkit::qt
