#include "toolkit/RowStore.h"

#include <algorithm>
#include <utility>

namespace toolkit {
namespace {

// Texts that were overwritten may take this much, and as much as the texts in use, before they are dropped.
constexpr std::size_t tolerableWaste = std::size_t{1} << 20U;

}  // namespace

RowStore::RowStore() : texts_(std::make_unique<std::pmr::monotonic_buffer_resource>()) {}

std::string_view RowStore::Cell(std::size_t row, std::size_t column) const {
  if (row >= rows_.size() || column >= rows_[row].cellCount) return {};
  return cells_[rows_[row].firstCell + column];
}

RowStore::Longest RowStore::LongestIn(std::size_t column) const {
  return column < longest_.size() ? longest_[column] : Longest{};
}

void RowStore::AddRow(std::span<const std::string_view> cells) {
  rows_.push_back({.firstCell = cells_.size(), .cellCount = cells.size()});
  std::size_t size = 0;
  for (const std::string_view cell : cells) size += cell.size();
  char* place = Allocate(size);
  for (std::size_t column = 0; column < cells.size(); ++column) {
    char* end = std::copy(cells[column].begin(), cells[column].end(), place);
    cells_.emplace_back(std::exchange(place, end), cells[column].size());
    NoteLength(rows_.size() - 1, column, cells[column].size());
  }
}

void RowStore::SetCell(std::size_t row, std::size_t column, std::string_view text) {
  if (column >= rows_[row].cellCount) MakeRoom(rows_[row], column + 1);
  std::string_view& cell = cells_[rows_[row].firstCell + column];
  overwrittenBytes_ += cell.size();
  cell = Keep(text);
  NoteLength(row, column, text.size());
  if (overwrittenBytes_ > std::max(tolerableWaste, keptBytes_ / 2)) DropOverwritten();
}

void RowStore::Clear() { *this = RowStore(); }

// The cells of the newest row end the vector and can simply grow; those of an earlier row move to its end.
void RowStore::MakeRoom(Row& row, std::size_t cellCount) {
  if (row.firstCell + row.cellCount != cells_.size()) {
    const std::size_t movedTo = cells_.size();
    for (std::size_t index = 0; index < row.cellCount; ++index) {
      const std::string_view moved = cells_[row.firstCell + index];
      cells_.push_back(moved);
    }
    row.firstCell = movedTo;
  }
  cells_.resize(row.firstCell + cellCount);
  row.cellCount = cellCount;
}

void RowStore::NoteLength(std::size_t row, std::size_t column, std::size_t size) {
  if (column >= longest_.size()) longest_.resize(column + 1);
  if (size > longest_[column].size) longest_[column] = {.row = row, .size = size};
}

std::string_view RowStore::Keep(std::string_view text) {
  if (text.empty()) return {};
  char* bytes = Allocate(text.size());
  std::copy(text.begin(), text.end(), bytes);
  return {bytes, text.size()};
}

char* RowStore::Allocate(std::size_t size) {
  keptBytes_ += size;
  return static_cast<char*>(texts_->allocate(size, 1));
}

void RowStore::DropOverwritten() {
  const auto old = std::exchange(texts_, std::make_unique<std::pmr::monotonic_buffer_resource>());
  keptBytes_ = 0;
  overwrittenBytes_ = 0;
  for (std::string_view& cell : cells_) cell = Keep(cell);
}

}  // namespace toolkit
