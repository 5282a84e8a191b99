#include "toolkit/qt/LabelView.h"

#include <algorithm>

#include <QPainter>
#include <QTextLayout>

#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

// More than a label can show; laying out more would take long.
constexpr std::size_t mostBytes = 20'000;
constexpr double smallFont = 0.85;
/// How far the plate behind a text reaches beyond it, and how much of a picture it lets through.
constexpr int plateMargin = 4;
constexpr int plateAlpha = 200;

Qt::Alignment ToQt(Alignment alignment) {
  switch (alignment) {
    case Alignment::Left:
      return Qt::AlignLeft;
    case Alignment::Center:
      return Qt::AlignHCenter;
    case Alignment::Right:
      return Qt::AlignRight;
  }
  return Qt::AlignLeft;
}

QFont Smaller(QFont font) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * smallFont);
  } else {
    font.setPixelSize(std::max(static_cast<int>(font.pixelSize() * smallFont), 1));
  }
  return font;
}

/// Breaks a text without line breaks. After `mostLines` the rest stands behind the last one.
QStringList Wrap(const QString& text, const QFont& font, int width, qsizetype mostLines) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    const bool isLast = lines.size() + 1 == mostLines;
    lines.append(text.mid(line.textStart(), isLast ? -1 : line.textLength()).trimmed());
    if (isLast) break;
  }
  layout.endLayout();
  return lines;
}

}  // namespace

LabelView::LabelView(Label& label, QWidget& parent) : ViewOf(label, parent) {
  setTextFormat(Qt::PlainText);
  LabelView::Refresh();
}

void LabelView::Refresh() {
  ShowCommonProperties(*this, Shown());
  setText(qt::ToQt(Shown().Text()));
  update();
}

QFont LabelView::TextFont() const {
  QFont textFont = font();
  if (Shown().Font() != LabelFont::System) textFont.setBold(true);
  return Shown().Font() == LabelFont::BoldSmallSystem ? Smaller(textFont) : textFont;
}

QStringList LabelView::LinesWithin(QSize size, const QFont& textFont) const {
  const QFontMetrics metrics(textFont);
  const std::string_view text = WholeCharacters(Shown().Text(), 0, mostBytes);
  const QString ellipsis(QChar(0x2026));
  QStringList lines;
  if (Shown().Lines() == LabelLines::One) {
    lines.append(DisplayText(text));
  } else {
    const qsizetype mostLines = std::max((size.height() + metrics.leading()) / metrics.lineSpacing(), 1);
    for (const QString& paragraph : qt::ToQt(text).remove('\r').split('\n')) {
      if (lines.size() == mostLines) {
        lines.back() += ellipsis;
        break;
      }
      lines += Wrap(DisplayText(FromQt(paragraph)), textFont, size.width(), mostLines - lines.size());
    }
  }
  if (text.size() < Shown().Text().size()) lines.back() += ellipsis;
  for (QString& line : lines) line = metrics.elidedText(line, Qt::ElideRight, size.width());
  return lines;
}

void LabelView::paintEvent(QPaintEvent* /*event*/) {
  if (Shown().Text().empty()) return;
  const bool onPicture = Shown().Ground() == LabelGround::Picture;
  const QFont textFont = TextFont();
  const int margin = onPicture ? plateMargin : 0;
  const QRect place = rect().adjusted(margin, 0, -margin, 0);
  const QString lines = LinesWithin(place.size(), textFont).join('\n');
  const bool isOneLine =
      !lines.contains('\n') && (Shown().Lines() == LabelLines::One || QFontMetrics(textFont).height() > place.height());
  const auto flags = static_cast<int>(ToQt(Shown().TextAlign()) | (isOneLine ? Qt::AlignVCenter : Qt::AlignTop));

  QPainter painter(this);
  painter.setFont(textFont);
  if (onPicture) {
    const QRect text = painter.boundingRect(place, flags, lines).adjusted(-plateMargin, -1, plateMargin, 1);
    QColor plate = palette().color(QPalette::Window);
    plate.setAlpha(plateAlpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(plate);
    painter.drawRoundedRect(text & rect(), plateMargin, plateMargin);
  }
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(place, flags, lines);
}

}  // namespace toolkit::qt
