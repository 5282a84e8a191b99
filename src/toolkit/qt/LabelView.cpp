#include "toolkit/qt/LabelView.h"

#include <algorithm>

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>

#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/ToolTip.h"

namespace toolkit::qt {
namespace {

// More text does not fit into a label and is slow to lay out.
constexpr std::size_t mostBytes = 20'000;
constexpr double smallFont = 0.85;
/// The size of the margin around a text on a picture, and the opacity of its background.
constexpr int plateMargin = 4;
constexpr int plateAlpha = 200;
constexpr QChar ellipsis(0x2026);

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

/// Wraps a text without line breaks. The last of `mostLines` contains the rest.
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

/// A translucent background in the window's own colour: invisible on that colour, and readable on any other.
void PaintPlate(QPainter& painter, const QRect& place, QColor color) {
  color.setAlpha(plateAlpha);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(place, plateMargin, plateMargin);
}

}  // namespace

LabelView::LabelView(Label& label, QWidget& parent) : ViewOf(label, parent) {
  setTextFormat(Qt::PlainText);
  LabelView::Refresh();
}

void LabelView::Refresh() {
  ShowCommonProperties(*this, Model());
  setText(qt::ToQt(Model().Text()));
  update();
}

QFont LabelView::TextFont() const {
  QFont textFont = font();
  if (Model().Font() != LabelFont::System) textFont.setBold(true);
  return Model().Font() == LabelFont::BoldSmallSystem ? Smaller(textFont) : textFont;
}

QRect LabelView::TextPlace() const {
  const int margin = Model().Ground() == LabelGround::Picture ? plateMargin : 0;
  return rect().adjusted(margin, 0, -margin, 0);
}

QStringList LabelView::ShownLines() const {
  const QSize size = TextPlace().size();
  const QFontMetrics metrics(TextFont());
  const std::string_view text = FirstCharacters(Model().Text(), mostBytes);
  QStringList lines;
  if (Model().Lines() == LabelLines::One) {
    lines.append(DisplayText(text));
  } else {
    const qsizetype mostLines = std::max((size.height() + metrics.leading()) / metrics.lineSpacing(), 1);
    for (const QString& paragraph : qt::ToQt(text).remove('\r').split('\n')) {
      if (lines.size() == mostLines) {
        lines.back() += ellipsis;
        break;
      }
      lines += Wrap(DisplayText(FromQt(paragraph)), TextFont(), size.width(), mostLines - lines.size());
    }
  }
  if (text.size() < Model().Text().size()) lines.back() += ellipsis;
  for (QString& line : lines) line = metrics.elidedText(line, Qt::ElideRight, size.width());
  return lines;
}

void LabelView::paintEvent(QPaintEvent* /*event*/) {
  if (Model().Text().empty()) return;
  const QRect place = TextPlace();
  const QString lines = ShownLines().join('\n');
  QPainter painter(this);
  painter.setFont(TextFont());
  const bool isOneLine =
      Model().Lines() == LabelLines::One || (!lines.contains('\n') && painter.fontMetrics().height() > place.height());
  const auto flags = static_cast<int>(ToQt(Model().TextAlign()) | (isOneLine ? Qt::AlignVCenter : Qt::AlignTop));
  if (Model().Ground() == LabelGround::Picture) {
    PaintPlate(painter, painter.boundingRect(place, flags, lines).adjusted(-plateMargin, -1, plateMargin, 1) & rect(),
               palette().color(QPalette::Window));
  }
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(place, flags, lines);
}

// The tool tip shows the whole text of an elided label.
bool LabelView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLabel::event(event);
  const QStringList lines = ShownLines();
  if (Model().Text().empty() || !lines.back().endsWith(ellipsis)) return QLabel::event(event);
  ShowToolTip(static_cast<QHelpEvent*>(event)->globalPos(), Model().Text(), *this);
  return true;
}

}  // namespace toolkit::qt
