#include "toolkit/qt/CanvasView.h"

#include <QPainter>

#include "toolkit/qt/QtPicture.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {

CanvasView::CanvasView(Canvas& canvas, QWidget& parent) : ViewOf(canvas, parent) { CanvasView::Refresh(); }

void CanvasView::Refresh() {
  ShowCommonProperties(*this, Model());
  const auto& picture = Model().Backdrop();
  backdrop_ = picture ? PixmapOf(*picture) : QPixmap();
  update();
}

void CanvasView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const double scale = QtWindow::ScaleOf(*this);
  painter.scale(scale, scale);
  painter.drawPixmap(0, 0, backdrop_);
}

}  // namespace toolkit::qt
