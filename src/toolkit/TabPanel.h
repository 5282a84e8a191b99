#pragma once

#include <string>
#include <vector>

#include "toolkit/Control.h"

namespace toolkit {

/// Panels of controls, of which one shows at a time. Panels count from 1; a control on panel 0 stands in the window
/// itself.
class TabPanel final : public ControlOf<TabPanel> {
 public:
  TabPanel() : ControlOf(FocusPolicy::Accepts) {}

  /// The captions of the panels, in their order.
  [[nodiscard]] const std::vector<std::string>& Panels() const { return panels_; }
  TabPanel& Panels(std::vector<std::string> captions) { return Set(panels_, std::move(captions)); }

  /// The panel that shows.
  [[nodiscard]] int Value() const { return value_; }
  /// Shows another panel. One that does not exist changes nothing.
  TabPanel& Value(int panel);

  /// Puts `control` on `panel`; called by the window when it builds itself.
  void Adopt(Control& control, int panel);

  /// Changes the panel as the user would: does nothing while the tabs are disabled or invisible.
  void Select(int panel);

 private:
  std::vector<std::string> panels_;
  std::vector<Control*> contents_;
  int value_ = 1;
};

}  // namespace toolkit
