#pragma once

#include <QFontMetrics>
#include <QPainter>
#include <QRect>
#include <QString>

namespace toolkit::qt {

/// The width of one line of text in pixels. Of a long one it is the sum of its characters' widths, without what stands
/// between some pairs of them: a guess that is right within a few pixels, and costs a thousandth.
[[nodiscard]] int LineWidth(const QFontMetrics& font, const QString& text);

/// Draws one line of text from the left edge of `area`, centred upright. Of a long one only what lies in `visible` is
/// looked at.
void DrawLine(QPainter& painter, const QRect& area, const QRect& visible, const QString& text);

}  // namespace toolkit::qt
