#include "toolkit/qt/CellDelegate.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "toolkit/qt/LongText.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/ToolTip.h"

namespace toolkit::qt {
namespace {

/// The same margin as that of the headings.
int MarginOf(const QStyleOptionViewItem& option) {
  return option.widget->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, option.widget);
}

QRect TextArea(const QStyleOptionViewItem& option) {
  return option.rect.adjusted(MarginOf(option), 0, -MarginOf(option), 0);
}

/// The part of `text` that can be visible in `width` pixels, if every character is at least half a pixel wide.
QString Fitting(const QString& text, int width) { return text.left(qsizetype{2} * std::max(width, 1)); }

}  // namespace

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QRect area = TextArea(option);
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const auto group = !option.state.testFlag(QStyle::State_Enabled) ? QPalette::Disabled
                     : option.state.testFlag(QStyle::State_Active) ? QPalette::Active
                                                                   : QPalette::Inactive;
  if (isSelected) painter->fillRect(option.rect, option.palette.brush(group, QPalette::Highlight));
  painter->setPen(option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
  const QString text = Fitting(index.data().toString(), area.width());
  const bool fits = LineWidth(option.fontMetrics, text) <= area.width();
  const QRect visible = area & option.widget->rect();
  const QString shown = fits ? text : option.fontMetrics.elidedText(text, Qt::ElideRight, area.width());
  DrawLine(*painter, area, visible, shown);
  PaintMarks(*painter, area, shown);
}

// A frame in the text's colour is visible on any background.
void CellDelegate::PaintMarks(QPainter& painter, const QRect& area, const QString& text) const {
  if (marked_.isEmpty()) return;
  const QFontMetrics font = painter.fontMetrics();
  for (qsizetype at = text.indexOf(marked_, 0, Qt::CaseInsensitive); at >= 0;
       at = text.indexOf(marked_, at + marked_.size(), Qt::CaseInsensitive)) {
    const int left = area.left() + LineWidth(font, text.left(at));
    if (left > area.right()) break;
    const int width = LineWidth(font, text.mid(at, marked_.size()));
    painter.drawRect(QRect(left, area.top(), width, area.height() - 1));
  }
}

QRect CellDelegate::MarkIn(const QString& text, const QStyleOptionViewItem& option) const {
  const qsizetype at = marked_.isEmpty() ? -1 : text.indexOf(marked_, 0, Qt::CaseInsensitive);
  if (at < 0) return {};
  return {MarginOf(option) + LineWidth(option.fontMetrics, text.left(at)), 0,
          LineWidth(option.fontMetrics, text.mid(at, marked_.size())), option.fontMetrics.height()};
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return {LineWidth(option.fontMetrics, index.data().toString()) + 2 * MarginOf(option), option.fontMetrics.height()};
}

bool CellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
  const QString text = index.data().toString();
  const int available = TextArea(option).width();
  if (LineWidth(option.fontMetrics, Fitting(text, available)) > available) {
    ShowToolTip(event->globalPos(), FromQt(text), *view->viewport());
  } else {
    QToolTip::hideText();
  }
  return true;
}

}  // namespace toolkit::qt
