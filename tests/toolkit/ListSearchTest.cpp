#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "toolkit/ListSearch.h"

using namespace std::string_literals;

TEST(ListSearch, FindsTheRowsThatShowTheText) {
  toolkit::Listbox list;
  list.ColumnCount(2);
  for (const auto& [first, second, hidden] : std::vector<std::array<std::string, 3>>{
           {"Error: disk", "warning", "secret"},  // 0
           {"warning", "ERROR", "error"},         // 1
           {"Straße ÄÖÜ", "Σίσυφος", "error"},    // 2
           {"a.c", "100% [x]* \\d", ""},          // 3
           {"abc", "", ""},                       // 4
           {"bad \xFF byte err\xC3", "x", ""},    // 5
           {"nul\0tail"s, "line\nbreak", ""},     // 6
           {"", "é e\u0301", ""},                 // 7
       }) {
    list.AddRow({first, second, hidden});
  }
  const std::vector<std::pair<std::vector<std::string>, std::vector<int>>> rows{
      {{"error", "warning"}, {0, 1}},
      {{"eRR"}, {0, 1, 5}},
      {{"äöü", "ΣΊΣΥΦΟΣ", "ß", "ẞ"}, {2}},
      {{"a.c", "[X]*", "\\D", "0% [", "."}, {3}},
      {{"b"}, {4, 5, 6}},
      {{" byte"}, {5}},
      {{"TAIL", "l\0T"s, "line\nb"}, {6}},
      {{"É"}, {7}},
      {{"", "secret", "disk\twarning", "diskwarning", "^", "\xFF", "err\xC3", std::string(5000, 'a')}, {}}};
  for (const auto& [texts, found] : rows) {
    for (const auto& text : texts) EXPECT_EQ(toolkit::RowsContaining(list, text), found) << text.substr(0, 20);
  }
  EXPECT_TRUE(toolkit::RowsContaining(toolkit::Listbox(), "a").empty());
}
