#pragma once

#include "toolkit/MenuBar.h"

namespace toolkit::qt {

/// A widget that supports items of the Edit menu while it has the keyboard focus.
class EditTarget {
 public:
  virtual ~EditTarget() = default;
  /// Whether `action` is possible in the present state.
  [[nodiscard]] virtual bool CanEdit(StandardAction action) const = 0;
  /// Performs an action that CanEdit allows.
  virtual void Edit(StandardAction action) = 0;
};

}  // namespace toolkit::qt
