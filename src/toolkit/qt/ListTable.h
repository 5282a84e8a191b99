#pragma once

#include <optional>
#include <vector>

#include <QTableView>

#include "toolkit/Listbox.h"
#include "toolkit/qt/CellDelegate.h"
#include "toolkit/qt/EditTarget.h"
#include "toolkit/qt/ListboxModel.h"

namespace toolkit::qt {

/// The rows of a list as a table, with mouse and keyboard handling. All rows have one height, and only those on the
/// screen are read or measured.
class ListTable final : public QTableView, public EditTarget {
 public:
  explicit ListTable(Listbox& list);
  ~ListTable() override;

  /// Updates the table from the list. Returns whether rows were added or removed.
  bool Follow();
  [[nodiscard]] const Listbox& List() const { return list_; }
  /// Marks all occurrences of a text.
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
  // The column widths that the user has set.
  std::vector<std::optional<int>> usersWidths_;
  // The widest text seen in the last column, if that column is as wide as its texts.
  int widestText_ = 0;
  // The scroll position while there were rows: a list that is refreshed is empty for a while.
  QPoint scrolled_;
  // Whether the program, not the user, causes the present changes; also during construction.
  bool following_ = true;
  bool layingOut_ = false;
};

}  // namespace toolkit::qt
