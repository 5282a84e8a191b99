#pragma once

#include <QStyledItemDelegate>

namespace toolkit::qt {

/// Draws the cells of a list: plain text on one line, with an ellipsis where it does not fit. What does not fit is not
/// even looked at, so that very long texts cost what the others do. A cell that is cut shows all of it in a tool tip.
class CellDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace toolkit::qt
