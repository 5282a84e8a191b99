#include "toolkit/Listbox.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

#include "toolkit/Text.h"

namespace toolkit {

std::string Listbox::Heading(int column) const {
  const auto index = static_cast<std::size_t>(column);
  return index < headings_.size() ? headings_[index] : std::string();
}

void Listbox::Heading(int column, std::string heading) {
  const auto index = static_cast<std::size_t>(column);
  if (index >= headings_.size()) headings_.resize(index + 1);
  headings_[index] = std::move(heading);
  Changed();
}

void Listbox::AddRow(std::span<const std::string_view> cells) {
  rows_.AddRow(cells);
  Changed();
}

void Listbox::DeleteAllRows() {
  rows_.Clear();
  tags_.clear();
  ++generation_;
  Changed();
  ListIndex(-1);
}

std::string_view Listbox::Cell(int row, int column) const {
  return rows_.Cell(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
}

std::any Listbox::RowTag(int row) const {
  const auto index = static_cast<std::size_t>(row);
  return index < tags_.size() ? tags_[index] : std::any();
}

void Listbox::RowTag(int row, std::any tag) {
  const auto index = static_cast<std::size_t>(row);
  if (index >= rows_.RowCount()) return;
  if (index >= tags_.size()) tags_.resize(index + 1);
  tags_[index] = std::move(tag);
}

std::string Listbox::RowText(int row) const {
  std::string text;
  for (int column = 0; column < columnCount_; ++column) {
    if (column > 0) text += '\t';
    text += Cell(row, column);
  }
  return text;
}

void Listbox::ListIndex(int row) {
  const int selected = row >= 0 && row < ListCount() ? row : -1;
  if (selected == listIndex_) return;
  listIndex_ = selected;
  Changed();
  Change();
}

void Listbox::Select(int row) {
  if (Operable()) ListIndex(row);
}

void Listbox::Activate() const {
  if (Operable()) DoubleClick();
}

namespace {

/// Removes the first width of a list such as "200, *" from `widths`: its number, or std::nullopt for "*".
std::optional<int> TakeWidth(std::string_view& widths) {
  const std::size_t end = std::min(widths.find(','), widths.size());
  const auto points = ParseNumber<int>(Trim(widths.substr(0, end)));
  widths.remove_prefix(std::min(end + 1, widths.size()));
  return points ? std::optional(std::max(*points, 0)) : std::nullopt;
}

}  // namespace

std::vector<int> LayOutColumns(std::string_view widths, std::vector<std::optional<int>> usersWidths, int available) {
  std::vector<std::optional<int>> wanted = std::move(usersWidths);
  for (auto& width : wanted) {
    const std::optional<int> programs = TakeWidth(widths);
    if (!width) width = programs;
  }

  const int fixed = std::accumulate(wanted.begin(), wanted.end(), 0,
                                    [](int sum, const auto& width) { return sum + width.value_or(0); });
  auto sharing = static_cast<int>(std::count(wanted.begin(), wanted.end(), std::nullopt));
  int left = std::max(available - fixed, 0);

  std::vector<int> points;
  points.reserve(wanted.size());
  for (const auto& width : wanted) {
    points.push_back(width ? *width : left / sharing);
    if (!width) left -= points.back(), --sharing;
  }
  return points;
}

}  // namespace toolkit
