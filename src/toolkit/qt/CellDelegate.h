#pragma once

#include <utility>

#include <QStyledItemDelegate>

namespace toolkit::qt {

/// Draws the cells of a list: plain text on one line, elided where it does not fit. Only the part that can fit is
/// measured, so very long texts cost no more than others. A tool tip shows the whole text of an elided cell.
class CellDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// Marks all occurrences of a text, ignoring case; the empty text marks nothing.
  void Mark(QString text) { marked_ = std::move(text); }
  /// The position of the first mark in the text of a cell, in pixels from the cell's left edge; empty if there is none.
  [[nodiscard]] QRect MarkIn(const QString& text, const QStyleOptionViewItem& option) const;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 private:
  void PaintMarks(QPainter& painter, const QRect& area, const QString& text) const;

  QString marked_;
};

}  // namespace toolkit::qt
