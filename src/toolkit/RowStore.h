#pragma once

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

namespace toolkit {

/// The texts of a list, stored compactly, without an object or allocation per cell. Designed for millions of rows that
/// are appended and read in any order. Rows and cells count from 0.
class RowStore {
 public:
  RowStore();

  [[nodiscard]] std::size_t RowCount() const { return rows_.size(); }
  /// Empty if nothing was stored there. Valid until the store is cleared.
  [[nodiscard]] std::string_view Cell(std::size_t row, std::size_t column) const;
  void AddRow(std::span<const std::string_view> cells);
  void Clear();

 private:
  struct Row {
    std::size_t FirstCell = 0;
    std::size_t CellCount = 0;
  };

  std::unique_ptr<std::pmr::monotonic_buffer_resource> texts_;
  std::vector<std::string_view> cells_;
  std::vector<Row> rows_;
};

}  // namespace toolkit
