#include "serverlist/wMain.h"
#include "shell/App.h"
#include "shell/MenuBar1.h"
#include "tests/servercontrol/ServerFixture.h"

using toolkit::StandardAction;

class Menus : public ServerFixture {};

TEST_F(Menus, BothWindowsShowOneMenuBarWithItsItemsInOrder) {
  const struct {
    const char* menu;
    const char* name;
    const char* caption;
    const char* shortcut;
    StandardAction action;
  } rows[] = {
      {"FileMenu", "FileQuit", "&Quit", "Cmd+Q", StandardAction::Quit},
      {"EditMenu", "EditUndo", "&Undo", "Cmd+Z", StandardAction::Undo},
      {"EditMenu", "EditSeparator1", "-", "", StandardAction::None},
      {"EditMenu", "EditCut", "Cu&t", "Cmd+X", StandardAction::Cut},
      {"EditMenu", "EditCopy", "&Copy", "Cmd+C", StandardAction::Copy},
      {"EditMenu", "EditPaste", "&Paste", "Cmd+V", StandardAction::Paste},
      {"EditMenu", "EditClear", "&Delete", "", StandardAction::Delete},
      {"EditMenu", "EditSeparator2", "-", "", StandardAction::None},
      {"EditMenu", "EditSelectAll", "Select &All", "Cmd+A", StandardAction::SelectAll},
  };
  const toolkit::MenuBar& bar = *MenuBar1();
  const App app({1, 0, 0});
  EXPECT_EQ(window->Menus().get(), &bar);
  EXPECT_EQ(std::make_shared<wMain>(nullptr)->Menus().get(), &bar);
  ASSERT_EQ(bar.Menus().size(), 2U);
  EXPECT_EQ(bar.Menus()[0].Name + bar.Menus()[0].Caption + bar.Menus()[1].Name + bar.Menus()[1].Caption,
            "FileMenu&FileEditMenu&Edit");
  std::vector<const toolkit::MenuItem*> items;
  for (const auto& menu : bar.Menus()) {
    for (const auto& item : menu.Items) items.push_back(&item);
  }
  ASSERT_EQ(items.size(), std::size(rows));
  for (std::size_t index = 0; index < items.size(); ++index) {
    const auto& row = rows[index];
    SCOPED_TRACE(row.name);
    EXPECT_EQ(bar.Find(row.name), items[index]);
    EXPECT_EQ(items[index]->Name + items[index]->Caption + items[index]->Shortcut,
              std::string(row.name) + row.caption + row.shortcut);
    EXPECT_EQ(items[index]->Action, row.action);
    EXPECT_EQ(items[index]->IsSeparator(), *row.caption == '-');
  }
  EXPECT_EQ(bar.Find("EditRedo"), nullptr);
}
