#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace toolkit {

/// The default behaviour of a menu item. Editing actions apply to the widget that has, or had before the menu opened,
/// the keyboard focus, and are enabled accordingly. The program handles none of them.
enum class StandardAction { None, Quit, Undo, Cut, Copy, Paste, Delete, SelectAll };

/// An item of a menu, or a menu with its items.
struct MenuItem {
  std::string Name;
  /// An ampersand marks the access key; "-" makes a separator.
  std::string Caption;
  /// As in "Cmd+Q", where "Cmd" is the desktop's command key; empty for none.
  std::string Shortcut;
  StandardAction Action = StandardAction::None;
  std::vector<MenuItem> Items;

  [[nodiscard]] bool IsSeparator() const { return Caption == "-"; }
};

/// The menus that a window shows.
class MenuBar {
 public:
  explicit MenuBar(std::vector<MenuItem> menus) : menus_(std::move(menus)) {}

  [[nodiscard]] const std::vector<MenuItem>& Menus() const { return menus_; }
  /// The menu or item with that name, nullptr if there is none.
  [[nodiscard]] const MenuItem* Find(std::string_view name) const;

 private:
  std::vector<MenuItem> menus_;
};

}  // namespace toolkit
