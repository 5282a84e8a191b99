#include "toolkit/Control.h"

#include "toolkit/Platform.h"

namespace toolkit {

void Control::Place(std::string name, Rect frame, Locks locks, int tabOrder) {
  name_ = std::move(name);
  frame_ = frame;
  locks_ = locks;
  tabOrder_ = tabOrder;
}

void Control::ShowOnPanel(int panel, int shownPanel) {
  panel_ = panel;
  panelShows_ = panel == 0 || panel == shownPanel;
  Changed();
}

void Control::Changed() const {
  if (view_ != nullptr) view_->Refresh();
}

// Assistive technologies can act on windows that a dialog blocks.
bool Control::Operable() const {
  const bool isOperable = CanBeUsed() && !Platform::WaitsForUser();
  if (!isOperable) Changed();
  return isOperable;
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Changed();
}

void Control::SetVisible(bool visible) {
  visible_ = visible;
  Changed();
}

void Control::SetAccessibleName(std::string name) {
  accessibleName_ = std::move(name);
  Changed();
}

}  // namespace toolkit
