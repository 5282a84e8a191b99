#pragma once

#include <utility>

#include <QStyledItemDelegate>

namespace toolkit::qt {

/// Draws the cells of a list: plain text on one line, with an ellipsis where it does not fit. What does not fit is not
/// even looked at, so that very long texts cost what the others do. A cell that is cut shows all of it in a tool tip.
class CellDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// A text that is marked wherever it is seen, in either case; the empty one is nowhere.
  void Mark(QString text) { marked_ = std::move(text); }
  /// Where the first mark in the text of a cell begins and ends, in pixels from the cell's left edge; empty if it has
  /// none.
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
