#include "toolkit/RowStore.h"

#include <algorithm>
#include <utility>

namespace toolkit {

RowStore::RowStore() : texts_(std::make_unique<std::pmr::monotonic_buffer_resource>()) {}

std::string_view RowStore::Cell(std::size_t row, std::size_t column) const {
  if (row >= rows_.size() || column >= rows_[row].CellCount) return {};
  return cells_[rows_[row].FirstCell + column];
}

void RowStore::AddRow(std::span<const std::string_view> cells) {
  rows_.push_back({.FirstCell = cells_.size(), .CellCount = cells.size()});
  std::size_t size = 0;
  for (const std::string_view cell : cells) size += cell.size();
  char* place = static_cast<char*>(texts_->allocate(size, 1));
  for (const std::string_view cell : cells) {
    char* end = std::copy(cell.begin(), cell.end(), place);
    cells_.emplace_back(std::exchange(place, end), cell.size());
  }
}

void RowStore::Clear() { *this = RowStore(); }

}  // namespace toolkit
