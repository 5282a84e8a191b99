#include <algorithm>
#include <functional>
#include <random>

#include <gmock/gmock.h>

#include "toolkit/Listbox.h"
#include "toolkit/PushButton.h"
#include "toolkit/TextField.h"

using toolkit::Listbox;

TEST(RowStore, HoldsWhatATableOfStringsWouldHold) {
  toolkit::RowStore store;
  std::vector<std::vector<std::string>> model;
  std::vector<std::size_t> longest(5);
  std::mt19937 random(20);  // the same numbers in every run
  for (int step = 0; step < 6000; ++step) {
    if (model.empty() || random() % 50 == 0) {
      store.AddRow({});
      model.emplace_back(longest.size());
    }
    const std::size_t row = random() % 2 == 0 ? model.size() - 1 : random() % model.size();
    const std::size_t column = random() % longest.size();
    // Some are copies of other cells; all together are so long that overwritten texts are dropped several times.
    const std::string made(random() % 4 == 0 ? 0 : random() % 4000, static_cast<char>('a' + step % 26));
    const std::string_view text = random() % 4 == 0 ? store.Cell(random() % model.size(), column) : made;
    model[row][column] = text;
    store.SetCell(row, column, text);
    longest[column] = std::max(longest[column], model[row][column].size());
  }
  ASSERT_EQ(store.RowCount(), model.size());
  for (std::size_t column = 0; column < longest.size(); ++column) {
    EXPECT_EQ(store.LongestIn(column).size, longest[column]) << column;
    for (std::size_t row = 0; row < model.size(); ++row) {
      ASSERT_EQ(store.Cell(row, column), model[row][column]) << row << ", " << column;
    }
  }
}

TEST(Listbox, RaisesChangeWhenTheSelectionChangesAndOnlyThen) {
  Listbox list;
  for (const char* text : {"0", "1", "2"}) list.AddRow({text});
  int changes = 0;
  list.Change = [&] { ++changes; };
  const std::tuple<const char*, std::function<void()>, int, int> rows[] = {
      {"the program selects", [&] { list.ListIndex(1); }, 1, 1},
      {"the same row", [&] { list.ListIndex(1); }, 1, 0},
      {"the user selects", [&] { list.Select(2); }, 2, 1},
      {"index too large", [&] { list.ListIndex(3); }, -1, 1},
      {"index below -1", [&] { list.ListIndex(-7); }, -1, 0},
      {"user on a disabled list", [&] { list.Enabled(false).Select(0); }, -1, 0},
      {"program on a disabled list", [&] { list.ListIndex(0); }, 0, 1},
      {"user on an invisible list", [&] { list.Enabled(true).Visible(false).Select(2); }, 0, 0},
      {"rows added and written", [&] { list.Visible(true).AddRow({"3"}), list.Cell(0, 0, "new"); }, 0, 0},
      {"the user clicks beside the rows", [&] { list.Select(-1); }, -1, 1},
      {"last row", [&] { list.Select(3); }, 3, 1},
      {"all rows go", [&] { list.DeleteAllRows(); }, -1, 1},
      {"no rows go", [&] { list.DeleteAllRows(); }, -1, 0},
  };
  for (const auto& [name, act, selected, raised] : rows) {
    SCOPED_TRACE(name);
    changes = 0;
    act();
    EXPECT_EQ(list.ListIndex(), selected);
    EXPECT_EQ(changes, raised);
  }
}

TEST(Controls, ObeyTheUserOnlyWhileEnabledAndVisible) {
  int events = 0;
  Listbox list;
  toolkit::PushButton button;
  toolkit::TextField field;
  list.DoubleClick = button.Action = [&] { ++events; };
  for (const auto& [enabled, visible] : {std::pair(false, true), {true, false}, {true, true}}) {
    list.Enabled(enabled).Visible(visible).Activate();
    button.Enabled(enabled).Visible(visible).Press();
    field.Enabled(enabled).Visible(visible).Type("typed");
    EXPECT_EQ(events, enabled && visible ? 2 : 0);
    EXPECT_EQ(field.Text(), enabled && visible ? "typed" : "");
  }
}

TEST(Listbox, LaysOutColumnsAsAsked) {
  const std::tuple<const char*, int, std::vector<int>> rows[] = {
      {"200,150,400", 600, {200, 150, 400}}, {"200,*", 150, {200, 0}},   {"200, 100, 200, 200", 900, {200, 100}},
      {"200, *", 600, {200, 200, 200}},      {"", 600, {200, 200, 200}}, {"*,*,*", 100, {33, 33, 34}},
      {"abc,,50", 300, {125, 125, 50}},      {"-5,*", 100, {0, 100}},
  };
  for (const auto& [widths, available, expected] : rows) {
    EXPECT_EQ(toolkit::LayOutColumns(widths, static_cast<int>(expected.size()), available), expected) << widths;
  }
}
