#include "toolkit/qt/ListGeometry.h"

#include <numeric>

namespace toolkit::qt {

int ListGeometry::ContentWidth() const { return std::accumulate(ColumnWidths.begin(), ColumnWidths.end(), 0); }

int ListGeometry::RowAt(int y) const {
  const int position = y + Offset.y();
  return position >= 0 && position < ContentHeight() ? position / RowHeight : -1;
}

int ListGeometry::ColumnAt(int x) const {
  int right = -Offset.x();
  for (std::size_t column = 0; column < ColumnWidths.size(); ++column) {
    right += ColumnWidths[column];
    if (x < right) return static_cast<int>(column);
  }
  return 0;
}

QRect ListGeometry::CellAt(int row, int column) const {
  const auto index = static_cast<std::size_t>(column);
  if (index >= ColumnWidths.size()) return {};
  const int left = std::accumulate(ColumnWidths.begin(), ColumnWidths.begin() + column, -Offset.x());
  return {left, TopOf(row), ColumnWidths[index], RowHeight};
}

}  // namespace toolkit::qt
