#include "toolkit/MenuBar.h"

namespace toolkit {
namespace {

const MenuItem* FindIn(const std::vector<MenuItem>& items, std::string_view name) {
  for (const MenuItem& item : items) {
    if (item.Name == name) return &item;
    if (const MenuItem* found = FindIn(item.Items, name)) return found;
  }
  return nullptr;
}

}  // namespace

const MenuItem* MenuBar::Find(std::string_view name) const { return FindIn(menus_, name); }

}  // namespace toolkit
