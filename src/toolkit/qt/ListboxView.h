#pragma once

#include <QListView>

#include "toolkit/Listbox.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/EditTarget.h"
#include "toolkit/qt/FindBar.h"
#include "toolkit/qt/ListGeometry.h"
#include "toolkit/qt/ListboxModel.h"

class QHeaderView;

namespace toolkit::qt {

/// A list on the screen. All rows are of one height, so nothing is kept or computed for a row that is not visible: a
/// million rows cost what a screenful costs. Of QListView only the item-view behaviour is used (selection, keyboard,
/// accessibility); places and painting are done here, since its own layout holds data for every row.
class ListboxView final : public ViewOf<QListView, Listbox>, public EditTarget {
 public:
  ListboxView(Listbox& list, QWidget& parent);
  ~ListboxView() override;

  void Refresh() override;
  [[nodiscard]] bool CanEdit(StandardAction action) const override;
  void Edit(StandardAction action) override;

  void doItemsLayout() override;
  [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
  [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint) override;

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void focusInEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] int horizontalOffset() const override;
  [[nodiscard]] bool isIndexHidden(const QModelIndex& index) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  void updateGeometries() override;
  [[nodiscard]] int verticalOffset() const override;
  bool viewportEvent(QEvent* event) override;
  [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;

 private:
  void Follow();
  void FollowSelection();
  void FollowScrollBars();
  void LayOut();
  void LayOutRows();
  void UserSelects(int row);
  void PaintRow(QPainter& painter, int row, int top);
  void WidenTo(int width);
  [[nodiscard]] bool LastColumnIsWide() const;
  bool ShowToolTip(const QPoint& position, const QPoint& globalPosition) const;

  ListboxModel model_;
  QHeaderView* header_;
  FindBar findBar_;
  ListGeometry geometry_;
  // How wide the last column's texts turned out to be, where it is as wide as its texts.
  int widestText_ = 0;
  unsigned laidOutGeneration_ = 0;
  bool followPending_ = false;
  bool following_ = false;
};

}  // namespace toolkit::qt
