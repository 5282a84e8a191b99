#pragma once

#include "toolkit/MenuBar.h"

namespace toolkit::qt {

/// What a widget that can have the keyboard does of the Edit menu.
class EditTarget {
 public:
  virtual ~EditTarget() = default;
  /// Whether `action` makes sense for the widget as it is now.
  [[nodiscard]] virtual bool CanEdit(StandardAction action) const = 0;
  /// Does what CanEdit has just allowed.
  virtual void Edit(StandardAction action) = 0;
};

}  // namespace toolkit::qt
