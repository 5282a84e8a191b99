#include "toolkit/PopupMenu.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace toolkit {

void PopupMenu::AddRows(std::vector<Row> rows) {
  std::ranges::move(rows, std::back_inserter(rows_));
  ++generation_;
  Changed();
}

void PopupMenu::RemoveRow(int row) {
  rows_.erase(rows_.begin() + row);
  ++generation_;
  const int chosen = listIndex_;
  if (row == chosen) listIndex_ = -1;
  if (row < chosen) --listIndex_;
  Changed();
  if (row == chosen) Change();
}

std::any PopupMenu::RowTag(int row) const {
  return row < 0 || row >= ListCount() ? std::any() : rows_[static_cast<std::size_t>(row)].Tag;
}

void PopupMenu::ListIndex(int row) {
  if (row < 0 || row >= ListCount()) row = -1;
  if (std::exchange(listIndex_, row) == row) return;
  Changed();
  Change();
}

void PopupMenu::Select(int row) {
  if (Operable()) ListIndex(row);
}

}  // namespace toolkit
