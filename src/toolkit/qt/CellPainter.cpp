#include "toolkit/qt/CellPainter.h"

#include <algorithm>
#include <limits>

#include "toolkit/qt/DisplayText.h"

namespace toolkit::qt {
namespace {

constexpr int cellMargin = 4;
// A text of up to this many bytes is drawn and measured as a whole.
constexpr std::size_t shortText = 2048;
constexpr std::size_t blockSize = 512;
constexpr int widestScroll = std::numeric_limits<int>::max() / 4;

QRect TextArea(const QRect& cell) { return cell.adjusted(cellMargin, 0, -cellMargin, 0); }

/// The part of `text` that can matter in `width` pixels: every byte is taken to need half a pixel at least.
QString Fitting(std::string_view text, int width) {
  return DisplayText(WholeCharacters(text, 0, 2 * static_cast<std::size_t>(std::max(width, 1))));
}

}  // namespace

void PaintElided(QPainter& painter, const QRect& cell, std::string_view text) {
  const QRect area = TextArea(cell);
  const QString shown = painter.fontMetrics().elidedText(Fitting(text, area.width()), Qt::ElideRight, area.width());
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

bool WouldBeElided(const QFontMetrics& font, int width, std::string_view text) {
  const int available = width - 2 * cellMargin;
  return font.horizontalAdvance(Fitting(text, available)) > available;
}

WideTextPainter::WideTextPainter(const QFontMetrics& font)
    : font_(font), blockWidth_(static_cast<int>(blockSize) * font.averageCharWidth()) {}

int WideTextPainter::ScrollWidth(std::string_view text) const {
  if (text.size() <= shortText) return font_.horizontalAdvance(DisplayText(text)) + 2 * cellMargin;
  // Its last characters may be wider than the average, so that more than one block stands beyond the last scroll step.
  const std::size_t blocks = text.size() / blockSize + 2;
  return static_cast<int>(std::min<std::size_t>(blocks * static_cast<std::size_t>(blockWidth_), widestScroll));
}

int WideTextPainter::Paint(QPainter& painter, const QRect& cell, int offset, std::string_view text) const {
  constexpr int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
  const QRect area = TextArea(cell);
  if (text.size() <= shortText) {
    const QString shown = DisplayText(text);
    const int width = font_.horizontalAdvance(shown);
    painter.drawText(QRect(area.left() - offset, area.top(), width + 1, area.height()), flags, shown);
    return width + 2 * cellMargin;
  }
  std::size_t position = static_cast<std::size_t>(offset / blockWidth_) * blockSize;
  int left = area.left();
  for (bool isFirst = true; left < cell.right() && position < text.size(); position += blockSize, isFirst = false) {
    const QString block = DisplayText(WholeCharacters(text, position, blockSize));
    const int width = font_.horizontalAdvance(block);
    // The further the scroll position is through the block's average width, the more of the block is off the screen.
    if (isFirst) left -= static_cast<int>(static_cast<std::int64_t>(width) * (offset % blockWidth_) / blockWidth_);
    painter.drawText(QRect(left, area.top(), width + 1, area.height()), flags, block);
    left += width;
  }
  return ScrollWidth(text);
}

}  // namespace toolkit::qt
