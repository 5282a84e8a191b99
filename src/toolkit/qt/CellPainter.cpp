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

// Where the last block of a long text starts. It is wider than the screen and the only one that is always measured, so
// that the text can be scrolled to its very end.
std::size_t LastBlock(std::string_view text) { return (text.size() - shortText) / blockSize * blockSize; }

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
  const std::size_t before = LastBlock(text) / blockSize * static_cast<std::size_t>(blockWidth_);
  const QString last = DisplayText(WholeCharacters(text, LastBlock(text), text.size()));
  const int lastWidth = font_.horizontalAdvance(last) + 2 * cellMargin;
  return static_cast<int>(std::min<std::size_t>(before, widestScroll)) + lastWidth;
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
  const std::size_t first = std::min(static_cast<std::size_t>(offset / blockWidth_) * blockSize, LastBlock(text));
  const int beyond = offset - static_cast<int>(first / blockSize) * blockWidth_;
  int left = area.left();
  for (std::size_t position = first; left < cell.right() && position <= LastBlock(text); position += blockSize) {
    const bool isLast = position == LastBlock(text);
    const QString block = DisplayText(WholeCharacters(text, position, isLast ? text.size() : blockSize));
    const int width = font_.horizontalAdvance(block);
    // The further the scroll position is through a block's average width, the more of the block is off the screen.
    if (position == first) left -= isLast ? beyond : static_cast<int>(std::int64_t{width} * beyond / blockWidth_);
    painter.drawText(QRect(left, area.top(), width + 1, area.height()), flags, block);
    left += width;
  }
  return ScrollWidth(text);
}

}  // namespace toolkit::qt
