#include "toolkit/qt/ProgressWheelView.h"

#include <algorithm>
#include <chrono>

#include <QPainter>

namespace toolkit::qt {
namespace {

constexpr int spokes = 12;
constexpr std::chrono::milliseconds timePerSpoke(80);

}  // namespace

ProgressWheelView::ProgressWheelView(ProgressWheel& wheel, QWidget& parent) : ViewOf(wheel, parent) {
  connect(&turning_, &QTimer::timeout, this, [this] {
    step_ = (step_ + 1) % spokes;
    update();
  });
  ProgressWheelView::Refresh();
}

void ProgressWheelView::Refresh() { ShowCommonProperties(*this, Model()); }

void ProgressWheelView::showEvent(QShowEvent* /*event*/) { turning_.start(timePerSpoke); }

void ProgressWheelView::hideEvent(QHideEvent* /*event*/) { turning_.stop(); }

void ProgressWheelView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(width() / 2.0, height() / 2.0);
  const double radius = std::min(width(), height()) / 2.0 - 1;
  QColor color = palette().color(QPalette::WindowText);
  for (int spoke = 0; spoke < spokes; ++spoke) {
    // The newest spoke is the darkest; older ones fade.
    const int age = (step_ - spoke + spokes) % spokes;
    color.setAlphaF(1.0F - static_cast<float>(age) / spokes);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.save();
    painter.rotate(360.0 * spoke / spokes);
    painter.drawLine(QPointF(0, -radius * 0.5), QPointF(0, -radius));
    painter.restore();
  }
}

}  // namespace toolkit::qt
