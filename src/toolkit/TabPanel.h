#pragma once

#include <string>
#include <vector>

#include "toolkit/Control.h"

namespace toolkit {

/// Panels of controls, one of which is shown at a time. Panels count from 1; a control on panel 0 is always shown.
class TabPanel final : public ControlOf<TabPanel> {
 public:
  TabPanel() : ControlOf(FocusPolicy::Accepts) {}

  /// The captions of the panels, in their order.
  [[nodiscard]] const std::vector<std::string>& Panels() const { return panels_; }
  TabPanel& Panels(std::vector<std::string> captions) { return Set(panels_, std::move(captions)); }

  /// The panel that is shown.
  [[nodiscard]] int Value() const { return value_; }
  /// Shows another panel. Ignored if it does not exist.
  TabPanel& Value(int panel);

  /// Puts `control` on `panel`; called by the window when it builds itself.
  void Adopt(Control& control, int panel);

  /// Shows a panel as the user would. Ignored while the tabs are disabled or invisible.
  void Select(int panel);

 private:
  std::vector<std::string> panels_;
  std::vector<Control*> contents_;
  int value_ = 1;
};

}  // namespace toolkit
