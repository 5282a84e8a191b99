#pragma once

#include <vector>

#include <QPoint>
#include <QRect>

namespace toolkit::qt {

/// Where rows and cells lie in a list whose rows are all of one height: computed from their numbers, never stored.
/// Coordinates are those of the viewport, in pixels.
struct ListGeometry {
  std::vector<int> ColumnWidths;
  int RowHeight = 1;
  int RowCount = 0;
  /// How far the list is scrolled.
  QPoint Offset;

  [[nodiscard]] int ContentWidth() const;
  [[nodiscard]] int ContentHeight() const { return RowCount * RowHeight; }
  [[nodiscard]] int TopOf(int row) const { return row * RowHeight - Offset.y(); }
  /// -1 where there is none.
  [[nodiscard]] int RowAt(int y) const;
  /// The first column where there is none, since a row takes clicks over its whole width.
  [[nodiscard]] int ColumnAt(int x) const;
  /// Empty if there is no such column.
  [[nodiscard]] QRect CellAt(int row, int column) const;
};

}  // namespace toolkit::qt
