#include "toolkit/ListSearch.h"

#include "toolkit/RegEx.h"
#include "toolkit/Text.h"

namespace toolkit {
namespace {

bool RowContains(const Listbox& list, int row, const RegEx& wanted) {
  for (int column = 0; column < list.ColumnCount(); ++column) {
    const std::string_view cell = list.Cell(row, column);
    const bool isColored = list.Texts() == ListTexts::Terminal && cell.find('\x1B') != std::string_view::npos;
    if (isColored ? wanted.IsIn(WithoutColorCodes(cell)) : wanted.IsIn(cell)) return true;
  }
  return false;
}

}  // namespace

std::vector<int> RowsContaining(const Listbox& list, std::string_view text) {
  std::vector<int> rows;
  if (text.empty() || !IsUTF8(text)) return rows;
  const RegEx wanted(text, RegEx::Meaning::PlainText);
  for (int row = 0; row < list.ListCount(); ++row) {
    if (RowContains(list, row, wanted)) rows.push_back(row);
  }
  return rows;
}

}  // namespace toolkit
