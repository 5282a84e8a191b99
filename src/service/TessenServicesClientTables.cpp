// The operations of TessenServicesClient that read service tables.

#include <algorithm>
#include <array>
#include <charconv>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include "service/TessenServicesClient.h"

namespace json = boost::json;

namespace {

/// The row with that number. Members usually are in the order of their numbers, so that position is tried before the
/// look-up.
const json::array& RowOf(const json::object& table, std::size_t number) {
  std::array<char, 24> digits{};
  const auto* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const std::string_view key(digits.data(), static_cast<std::size_t>(end - digits.data()));

  auto member = table.begin() + number;
  if (number >= table.size() || std::string_view(member->key()) != key) member = table.find(key);
  if (member == table.end()) {
    throw toolkit::RuntimeException("The server's table cannot be shown: it has no row " + std::string(key) + ".");
  }
  const json::array* row = member->value().if_array();
  if (row == nullptr) {
    throw toolkit::RuntimeException("The server's table cannot be shown: its row " + std::string(key) + " is no row.");
  }
  return *row;
}

}  // namespace

std::vector<const json::array*> TessenServicesClient::TessenListBox_FillArray(const json::object& table,
                                                                              bool hasHeadings) {
  std::vector<const json::array*> rows;
  rows.reserve(table.size());
  for (std::size_t number = hasHeadings ? 1 : 0; number < table.size(); ++number) rows.push_back(&RowOf(table, number));
  return rows;
}

void TessenServicesClient::TessenListBox_FillDesktopListBox(toolkit::Listbox& list, const json::object& table,
                                                            bool hasHeadings) {
  const json::array* headings = hasHeadings ? &RowOf(table, 0) : nullptr;
  const std::vector<const json::array*> rows = TessenListBox_FillArray(table, hasHeadings);

  list.HasHeading(hasHeadings);
  for (std::size_t column = 0; headings != nullptr && column < headings->size(); ++column) {
    list.Heading(static_cast<int>(column), toolkit::ToText((*headings)[column]));
  }
  std::vector<std::string> converted;
  std::vector<std::string_view> cells;
  for (const json::array* row : rows) {
    converted.resize(std::max(converted.size(), row->size()));
    cells.clear();
    for (const json::value& cell : *row) cells.push_back(toolkit::ToText(cell, converted[cells.size()]));
    list.AddRow(cells);
  }
}
