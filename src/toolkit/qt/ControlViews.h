#pragma once

#include <utility>

#include <QWidget>

#include "toolkit/Control.h"

namespace toolkit::qt {

/// Makes the view of `control` as a child of `parent`, which owns it. The control must outlive the view. Ends the
/// program with a sentence that names the control if there is no view for its kind.
QWidget* MakeView(Control& control, QWidget& parent);

/// What the views of all kinds show: name, accessible name, enabled, visible, and whether the keyboard reaches them.
void ShowCommonProperties(QWidget& view, const Control& control);

/// The view `Widget` of a control of the kind `Kind`, from its making to its end.
template <typename Widget, typename Kind>
class ViewOf : public Widget, public ControlView {
 public:
  ViewOf(Kind& control, QWidget& parent) : Widget(&parent), control_(control) {
    control.ShowIn(this);
    if (control.Focus() == FocusPolicy::Refuses) this->setFocusPolicy(Qt::NoFocus);
  }
  ViewOf(const ViewOf&) = delete;
  ViewOf& operator=(const ViewOf&) = delete;
  ~ViewOf() override { control_.LeaveView(*this); }

 protected:
  [[nodiscard]] Kind& Model() const { return control_; }

  /// Shows what takes long to show, such as many rows.
  virtual void Follow() {}
  /// Lets Follow() run once, when the handler that changes the control is done.
  void FollowLater() {
    if (std::exchange(followPending_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
          followPending_ = false;
          Follow();
        },
        Qt::QueuedConnection);
  }

 private:
  Kind& control_;
  bool followPending_ = false;
};

}  // namespace toolkit::qt
