#include <functional>

#include <gmock/gmock.h>

#include "toolkit/Listbox.h"
#include "toolkit/PushButton.h"
#include "toolkit/TextField.h"

using toolkit::Listbox;

TEST(Listbox, RaisesChangeWhenTheSelectionChanges) {
  Listbox list;
  for (const char* text : {"0", "1", "2"}) list.AddRow({text});
  int changes = 0;
  list.Change = [&] { ++changes; };
  const std::tuple<const char*, std::function<void()>, int, int> rows[] = {
      {"the program selects", [&] { list.ListIndex(1); }, 1, 1},
      {"the user selects", [&] { list.Select(2); }, 2, 1},
      {"index too large", [&] { list.ListIndex(3); }, -1, 1},
      {"program on a disabled list", [&] { list.Enabled(false).ListIndex(0); }, 0, 1},
      {"rows added", [&] { list.Enabled(true).AddRow({"3"}); }, 0, 0},
      {"the user clicks beside the rows", [&] { list.Select(-1); }, -1, 1},
      {"all rows go", [&] { list.ListIndex(3), changes = 0, list.DeleteAllRows(); }, -1, 1},
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

TEST(Controls, ObeyOnlyWhileEnabledAndVisible) {
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
