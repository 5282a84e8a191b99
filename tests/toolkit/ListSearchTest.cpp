#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "toolkit/ListSearch.h"

using namespace std::string_literals;

TEST(ListSearch, FindsTheRowsThatShowTheText) {
  toolkit::Listbox list;
  list.ColumnCount(2);
  list.AddRow({"Error: disk", "warning", "hidden"});  // 0
  list.AddRow({"Straße ÄÖÜ", "ERROR", "error"});      // 1
  list.AddRow({"a.c", "100% [x]* \\d"});              // 2
  list.AddRow({"bad \xFF byte\xC3", "nul\0tail"s});   // 3
  const std::vector<std::pair<std::vector<std::string>, std::vector<int>>> rows{
      {{"error", "eRR"}, {0, 1}},
      {{"äöü", "ẞ"}, {1}},
      {{"a.c", "[X]*", "\\D"}, {2}},
      {{" byte", "TAIL", "l\0T"s}, {3}},
      {{"", "hidden", "disk\twarning", "diskwarning", "^", "\xFF", std::string(5000, 'a')}, {}}};
  for (const auto& [texts, found] : rows) {
    for (const auto& text : texts) EXPECT_EQ(toolkit::RowsContaining(list, text), found) << text.substr(0, 20);
  }
}
