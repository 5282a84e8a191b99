#include "toolkit/TabPanel.h"

namespace toolkit {

TabPanel& TabPanel::Value(int panel) {
  if (panel < 1 || static_cast<std::size_t>(panel) > panels_.size() || panel == value_) return *this;
  value_ = panel;
  Changed();
  for (Control* control : contents_) control->ShowOnPanel(control->Panel(), value_);
  return *this;
}

void TabPanel::Adopt(Control& control, int panel) {
  contents_.push_back(&control);
  control.ShowOnPanel(panel, value_);
}

void TabPanel::Select(int panel) {
  if (Operable()) Value(panel);
}

}  // namespace toolkit
