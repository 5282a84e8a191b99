#include "toolkit/qt/CanvasView.h"

#include <QPainter>

#include "toolkit/qt/QtPicture.h"

namespace toolkit::qt {

CanvasView::CanvasView(Canvas& canvas, QWidget& parent) : ViewOf(canvas, parent) { CanvasView::Refresh(); }

void CanvasView::Refresh() {
  ShowCommonProperties(*this, Shown());
  const auto& picture = Shown().Backdrop();
  backdrop_ = picture ? PixmapOf(*picture) : QPixmap();
  update();
}

void CanvasView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(0, 0, backdrop_);
}

}  // namespace toolkit::qt
