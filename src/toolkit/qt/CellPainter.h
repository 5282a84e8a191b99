#pragma once

#include <string_view>

#include <QFontMetrics>
#include <QPainter>
#include <QRect>

namespace toolkit::qt {

/// Draws `text` (UTF-8) into a cell of fixed width, with an ellipsis where it does not fit. Looks only at as much of
/// the text as can fit.
void PaintElided(QPainter& painter, const QRect& cell, std::string_view text);

/// Whether PaintElided would cut `text` in a cell of `width` pixels.
[[nodiscard]] bool WouldBeElided(const QFontMetrics& font, int width, std::string_view text);

/// Draws what is visible of a text that may be wider than the screen, of any length.
///
/// A long text is drawn in blocks. Only the blocks on the screen are measured: the one at the left edge stands where a
/// text of average characters would have it, and the others follow it without a gap. The text's end is exact.
class WideTextPainter {
 public:
  explicit WideTextPainter(const QFontMetrics& font);

  /// The width in pixels that a text of `size` bytes needs at most; for a long text, the width it scrolls over.
  [[nodiscard]] int ScrollWidth(std::string_view text) const;
  /// Draws `text` into `cell` as seen when it is scrolled by `offset` pixels. Returns its ScrollWidth; 0 if the end of
  /// a long text is so far off that it was not measured.
  int Paint(QPainter& painter, const QRect& cell, int offset, std::string_view text) const;

 private:
  [[nodiscard]] int ScrollWidthBefore(std::size_t block) const;

  QFontMetrics font_;
  int blockWidth_;
};

}  // namespace toolkit::qt
