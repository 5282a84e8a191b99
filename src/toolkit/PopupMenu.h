#pragma once

#include <any>
#include <string>
#include <vector>

#include "toolkit/Control.h"

namespace toolkit {

/// A menu of rows, one of which is selected and shown while the menu is closed. Rows count from 0, -1 is none.
class PopupMenu final : public ControlOf<PopupMenu> {
 public:
  struct Row {
    std::string Text;
    /// An object stored with the row.
    std::any Tag;
  };

  PopupMenu() : ControlOf(FocusPolicy::Accepts) {}

  /// The selection has changed, by the user or the program. The rows are complete by then.
  Event<> Change;

  [[nodiscard]] int ListCount() const { return static_cast<int>(rows_.size()); }
  void AddRows(std::vector<Row> rows);
  /// Removes a row. If it was selected, the selection is cleared and Change is raised.
  void RemoveRow(int row);
  [[nodiscard]] const std::string& Text(int row) const { return rows_.at(static_cast<std::size_t>(row)).Text; }
  /// Empty if there is no such row.
  [[nodiscard]] std::any RowTag(int row) const;

  /// The selected row.
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  /// Selects a row; one that does not exist clears the selection. Raises Change if the selection changes.
  void ListIndex(int row);

  /// Changes whenever rows are added or removed.
  [[nodiscard]] unsigned Generation() const { return generation_; }

  /// Selects a row as the user would. Ignored while the menu is disabled or invisible.
  void Select(int row);

 private:
  std::vector<Row> rows_;
  int listIndex_ = -1;
  unsigned generation_ = 0;
};

}  // namespace toolkit
