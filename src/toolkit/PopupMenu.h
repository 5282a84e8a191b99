#pragma once

#include <any>
#include <string>
#include <vector>

#include "toolkit/Control.h"

namespace toolkit {

/// A menu of rows, one of which is chosen and shows while the menu is closed. Rows count from 0, -1 is none.
class PopupMenu final : public ControlOf<PopupMenu> {
 public:
  struct Row {
    /// Plain text.
    std::string Text;
    /// An object kept with the row.
    std::any Tag;
  };

  PopupMenu() : ControlOf(FocusPolicy::Accepts) {}

  /// Another row is chosen, or none, whoever caused it. The rows are what they are to be by then.
  Event<> Change;

  [[nodiscard]] int ListCount() const { return static_cast<int>(rows_.size()); }
  /// Adds rows at the end.
  void AddRows(std::vector<Row> rows);
  /// Removes a row. If it was the chosen one, none is chosen afterwards, and Change is raised.
  void RemoveRow(int row);
  [[nodiscard]] const std::string& Text(int row) const { return rows_.at(static_cast<std::size_t>(row)).Text; }
  /// Empty if there is no such row.
  [[nodiscard]] std::any RowTag(int row) const;

  /// The chosen row.
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  /// Chooses a row. One that does not exist counts as none. Raises Change if that is a change.
  void ListIndex(int row);

  /// Changes whenever rows are added or removed.
  [[nodiscard]] unsigned Generation() const { return generation_; }

  /// Chooses a row as the user would: does nothing while the menu is disabled or invisible.
  void Select(int row);

 private:
  std::vector<Row> rows_;
  int listIndex_ = -1;
  unsigned generation_ = 0;
};

}  // namespace toolkit
