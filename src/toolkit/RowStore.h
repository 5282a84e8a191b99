#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

namespace toolkit {

/// The texts of a list, kept close together: no object and no allocation a cell. Made for millions of rows that are
/// added at the end and read anywhere. A row has as many cells as were written; rows and cells count from 0.
class RowStore {
 public:
  RowStore();

  [[nodiscard]] std::size_t RowCount() const { return rows_.size(); }
  [[nodiscard]] std::size_t CellCount(std::size_t row) const { return rows_[row].cellCount; }
  /// The empty text where nothing was written. Valid until the next change of the store.
  [[nodiscard]] std::string_view Cell(std::size_t row, std::size_t column) const;
  /// The size in bytes of the longest text ever written into `column`, and its row.
  struct Longest {
    std::size_t row = 0;
    std::size_t size = 0;
  };
  [[nodiscard]] Longest LongestIn(std::size_t column) const;

  void AddRow(std::span<const std::string_view> cells);
  /// `row` must exist. Cells left out between the last one and `column` become empty.
  void SetCell(std::size_t row, std::size_t column, std::string_view text);
  void Clear();

 private:
  struct Row {
    std::size_t firstCell = 0;
    std::size_t cellCount = 0;
  };

  void MakeRoom(Row& row, std::size_t cellCount);
  void NoteLength(std::size_t row, std::size_t column, std::size_t size);
  char* Allocate(std::size_t size);
  std::string_view Keep(std::string_view text);
  void DropOverwritten();

  std::unique_ptr<std::pmr::monotonic_buffer_resource> texts_;
  std::vector<std::string_view> cells_;
  std::vector<Row> rows_;
  std::vector<Longest> longest_;
  std::size_t keptBytes_ = 0;
  std::size_t overwrittenBytes_ = 0;
};

}  // namespace toolkit
