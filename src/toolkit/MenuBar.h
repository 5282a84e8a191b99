#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace toolkit {

/// What the desktop does by itself when a menu item is chosen. The editing ones act on what has the keyboard,
/// or had it before the menu, and are enabled where that makes sense; none is handled by the program.
enum class StandardAction { None, Quit, Undo, Cut, Copy, Paste, Delete, SelectAll };

/// An entry of a menu, or a menu with its entries.
struct MenuItem {
  std::string Name;
  /// An ampersand marks the access key; "-" makes a separator.
  std::string Caption;
  /// As in "Cmd+Q", with the desktop's own command key; empty for none.
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
  /// The menu or entry of that name, nullptr if there is none.
  [[nodiscard]] const MenuItem* Find(std::string_view name) const;

 private:
  std::vector<MenuItem> menus_;
};

}  // namespace toolkit
