#pragma once

#include <optional>
#include <vector>

#include <QTableView>

#include "toolkit/Listbox.h"
#include "toolkit/qt/CellDelegate.h"
#include "toolkit/qt/EditTarget.h"
#include "toolkit/qt/ListboxModel.h"

namespace toolkit::qt {

/// The rows of a list as a table, and what the user does to them with mouse and keys. All rows are of one height, and
/// only those on the screen are read or measured.
class ListTable final : public QTableView, public EditTarget {
 public:
  explicit ListTable(Listbox& list);
  ~ListTable() override;

  /// Shows the list as it is now. Returns whether rows came or went.
  bool Follow();
  [[nodiscard]] const Listbox& List() const { return list_; }
  /// Marks a text wherever it is seen.
  void Mark(const QString& text);
  /// Scrolls to the first mark in a row.
  void ShowMark(int row);

  [[nodiscard]] bool CanEdit(StandardAction action) const override;
  void Edit(StandardAction action) override;
  void keyboardSearch(const QString& typed) override;
  void scrollTo(const QModelIndex& index, ScrollHint hint) override;

 protected:
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void showEvent(QShowEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void SetUpHeaders();
  void FollowSelection();
  void Measure();
  void LayOut();
  void KeepUsersWidth(int column, int width);
  [[nodiscard]] bool LastColumnIsWide() const;

  Listbox& list_;
  ListboxModel model_;
  CellDelegate cells_;
  // Widths that the user gave to columns, where he did.
  std::vector<std::optional<int>> usersWidths_;
  // How wide the last column's texts turned out to be, where it is as wide as its texts.
  int widestText_ = 0;
  // Where the rows stood when there were any: a list that is refreshed is empty for a while.
  QPoint scrolled_;
  // What changes now is not the user's doing, from the making of the table on.
  bool following_ = true;
  bool layingOut_ = false;
};

}  // namespace toolkit::qt
