#include "toolkit/qt/LongText.h"

#include <array>

namespace toolkit::qt {
namespace {

constexpr qsizetype longText = 1000;
constexpr qsizetype blockSize = 200;

/// The widths of single characters, with a cache for common ones.
class CharacterWidths {
 public:
  explicit CharacterWidths(const QFontMetrics& font) : font_(font) { usual_.fill(-1); }

  int Of(QStringView text) {
    int sum = 0;
    for (const QChar character : text) sum += Of(character);
    return sum;
  }

 private:
  int Of(QChar character) {
    const std::size_t code = character.unicode();
    if (code >= usual_.size()) return font_.horizontalAdvance(character);
    if (usual_[code] < 0) usual_[code] = font_.horizontalAdvance(character);
    return usual_[code];
  }

  QFontMetrics font_;
  std::array<int, 0x250> usual_{};
};

}  // namespace

int LineWidth(const QFontMetrics& font, const QString& text) {
  return text.size() <= longText ? font.horizontalAdvance(text) : CharacterWidths(font).Of(text);
}

// The widths of the preceding characters determine the position of the first visible block; the others follow without a
// gap.
void DrawLine(QPainter& painter, const QRect& area, const QRect& visible, const QString& text) {
  const QFontMetrics font = painter.fontMetrics();
  const int baseline = area.top() + (area.height() - font.height()) / 2 + font.ascent();
  if (text.size() <= longText) {
    painter.drawText(area.left(), baseline, text);
    return;
  }
  CharacterWidths widths(font);
  int left = area.left();
  bool isSeen = false;
  for (qsizetype start = 0; start < text.size() && left <= visible.right(); start += blockSize) {
    const QString block = text.mid(start, blockSize);
    const int guess = isSeen ? 0 : widths.Of(block);
    isSeen = isSeen || left + guess >= visible.left();
    if (isSeen) painter.drawText(left, baseline, block);
    left += isSeen ? font.horizontalAdvance(block) : guess;
  }
}

}  // namespace toolkit::qt
