#include <gmock/gmock.h>

#include "toolkit/Listbox.h"
#include "toolkit/PushButton.h"
#include "toolkit/TextField.h"

using toolkit::Listbox;

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
