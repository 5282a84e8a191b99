#include "toolkit/qt/CautionSign.h"

#include <array>

#include <QPainter>

namespace toolkit::qt {
namespace {

constexpr int side = 40;
// The drawing is made in units of its own.
constexpr double units = 20;
constexpr std::array<QPointF, 3> triangle{QPointF(10, 2.5), QPointF(18.5, 17), QPointF(1.5, 17)};

}  // namespace

CautionSign::CautionSign() {
  setAccessibleName(QStringLiteral("Caution"));
  setFixedSize(side, side);
}

void CautionSign::paintEvent(QPaintEvent* /*event*/) {
  const QColor amber(0xF5, 0xB3, 0x2E);
  const QColor ink(0x2B, 0x22, 0x0C);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / units, side / units);
  painter.setBrush(amber);
  painter.setPen(QPen(amber, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolygon(triangle.data(), static_cast<int>(triangle.size()));
  painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(10, 7.5), QPointF(10, 11.5));
  painter.drawPoint(QPointF(10, 15.2));
}

}  // namespace toolkit::qt
