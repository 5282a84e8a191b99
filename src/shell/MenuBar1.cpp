#include "shell/MenuBar1.h"

using toolkit::MenuItem;
using toolkit::StandardAction;

namespace {

MenuItem FileMenu() {
  return {"FileMenu", "&File", "", StandardAction::None, {{"FileQuit", "&Quit", "Cmd+Q", StandardAction::Quit, {}}}};
}

MenuItem EditMenu() {
  // clang-format off
  return {"EditMenu", "&Edit", "", StandardAction::None, {
      {"EditUndo",       "&Undo",       "Cmd+Z", StandardAction::Undo,      {}},
      {"EditSeparator1", "-",           "",      StandardAction::None,      {}},
      {"EditCut",        "Cu&t",        "Cmd+X", StandardAction::Cut,       {}},
      {"EditCopy",       "&Copy",       "Cmd+C", StandardAction::Copy,      {}},
      {"EditPaste",      "&Paste",      "Cmd+V", StandardAction::Paste,     {}},
      {"EditClear",      "&Delete",     "",      StandardAction::Delete,    {}},
      {"EditSeparator2", "-",           "",      StandardAction::None,      {}},
      {"EditSelectAll",  "Select &All", "Cmd+A", StandardAction::SelectAll, {}},
  }};
  // clang-format on
}

}  // namespace

std::shared_ptr<const toolkit::MenuBar> MenuBar1() {
  static const auto bar = std::make_shared<const toolkit::MenuBar>(std::vector{FileMenu(), EditMenu()});
  return bar;
}
