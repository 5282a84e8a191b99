#include "toolkit/qt/CellPainter.h"

#include <algorithm>
#include <limits>

#include "toolkit/qt/DisplayText.h"

namespace toolkit::qt {
namespace {

constexpr int cellMargin = 4;
// A text of up to this many bytes is drawn and measured as a whole.
constexpr std::size_t shortText = 2048;
constexpr std::size_t blockSize = 256;
constexpr int widestScroll = std::numeric_limits<int>::max() / 4;

// Where the last block of a long text starts. It is wider than the screen, so that the text can be scrolled to its very
// end, which stands where the block's measured width puts it.
std::size_t LastBlock(std::string_view text) { return (text.size() - shortText) / blockSize * blockSize; }

QRect TextArea(const QRect& cell) { return cell.adjusted(cellMargin, 0, -cellMargin, 0); }

/// Draws what is one line already, so that nothing needs to lay it out.
void DrawLine(QPainter& painter, const QRect& area, int left, const QString& line) {
  const QFontMetrics font = painter.fontMetrics();
  painter.drawText(left, area.top() + (area.height() - font.height()) / 2 + font.ascent(), line);
}

/// The part of `text` that can matter in `width` pixels: every byte is taken to need half a pixel at least.
QString Fitting(std::string_view text, int width) {
  return DisplayText(WholeCharacters(text, 0, 2 * static_cast<std::size_t>(std::max(width, 1))));
}

}  // namespace

void PaintElided(QPainter& painter, const QRect& cell, std::string_view text) {
  const QRect area = TextArea(cell);
  const QString shown = painter.fontMetrics().elidedText(Fitting(text, area.width()), Qt::ElideRight, area.width());
  DrawLine(painter, area, area.left(), shown);
}

bool WouldBeElided(const QFontMetrics& font, int width, std::string_view text) {
  const int available = width - 2 * cellMargin;
  return font.horizontalAdvance(Fitting(text, available)) > available;
}

WideTextPainter::WideTextPainter(const QFontMetrics& font)
    : font_(font), blockWidth_(static_cast<int>(blockSize) * font.averageCharWidth()) {}

int WideTextPainter::ScrollWidth(std::string_view text) const {
  if (text.size() <= shortText) return font_.horizontalAdvance(DisplayText(text)) + 2 * cellMargin;
  const QString last = DisplayText(WholeCharacters(text, LastBlock(text), text.size()));
  return ScrollWidthBefore(LastBlock(text)) + font_.horizontalAdvance(last) + 2 * cellMargin;
}

int WideTextPainter::ScrollWidthBefore(std::size_t block) const {
  const std::size_t width = block / blockSize * static_cast<std::size_t>(blockWidth_);
  return static_cast<int>(std::min<std::size_t>(width, widestScroll));
}

int WideTextPainter::Paint(QPainter& painter, const QRect& cell, int offset, std::string_view text) const {
  const QRect area = TextArea(cell);
  if (text.size() <= shortText) {
    const QString shown = DisplayText(text);
    DrawLine(painter, area, area.left() - offset, shown);
    return font_.horizontalAdvance(shown) + 2 * cellMargin;
  }
  const std::size_t first = std::min(static_cast<std::size_t>(offset / blockWidth_) * blockSize, LastBlock(text));
  const int beyond = offset - static_cast<int>(first / blockSize) * blockWidth_;
  int left = area.left();
  int scrollWidth = 0;
  for (std::size_t position = first; left < cell.right() && position <= LastBlock(text); position += blockSize) {
    const bool isLast = position == LastBlock(text);
    const QString block = DisplayText(WholeCharacters(text, position, isLast ? text.size() : blockSize));
    const int width = font_.horizontalAdvance(block);
    // The further the scroll position is through a block's average width, the more of the block is off the screen.
    if (position == first) left -= isLast ? beyond : static_cast<int>(std::int64_t{width} * beyond / blockWidth_);
    DrawLine(painter, area, left, block);
    left += width;
    if (isLast) scrollWidth = ScrollWidthBefore(LastBlock(text)) + width + 2 * cellMargin;
  }
  return scrollWidth;
}

}  // namespace toolkit::qt
