#include "serverlist/wMain.h"
#include "shell/App.h"
#include "shell/MenuBar1.h"
#include "tests/servercontrol/ServerFixture.h"

class Menus : public ServerFixture {};

TEST_F(Menus, BothWindowsShowOneBarWithItsItemsInOrder) {
  const App app({1, 0, 0});
  const toolkit::MenuBar& bar = *MenuBar1();
  EXPECT_EQ(window->Menus().get(), &bar);
  EXPECT_EQ(std::make_shared<wMain>(nullptr)->Menus().get(), &bar);
  Texts items;
  for (const auto& menu : bar.Menus()) {
    items.push_back(menu.Name + " " + menu.Caption);
    for (const auto& item : menu.Items) {
      items.push_back(item.Name + " " + item.Caption + " " + item.Shortcut);
      EXPECT_EQ(bar.Find(item.Name), &item);
      EXPECT_EQ(item.Action == toolkit::StandardAction::None, item.IsSeparator()) << item.Name;
    }
  }
  EXPECT_EQ(bar.Find("EditRedo"), nullptr);
  // clang-format off
  EXPECT_THAT(items, testing::ElementsAre(
      "FileMenu &File", "FileQuit &Quit Cmd+Q", "EditMenu &Edit", "EditUndo &Undo Cmd+Z", "EditSeparator1 - ",
      "EditCut Cu&t Cmd+X", "EditCopy &Copy Cmd+C", "EditPaste &Paste Cmd+V", "EditClear &Delete ",
      "EditSeparator2 - ", "EditSelectAll Select &All Cmd+A"));
  // clang-format on
}
