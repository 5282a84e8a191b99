#pragma once

#include <utility>

#include <QWidget>

#include "toolkit/Control.h"

namespace toolkit::qt {

/// Creates the view of `control` as a child of `parent`, which owns it. The control must outlive the view. Aborts with
/// a message that names the control if there is no view for its type.
QWidget* MakeView(Control& control, QWidget& parent);

/// Applies the properties that all controls have: name, accessible name, enabled, visible.
void ShowCommonProperties(QWidget& view, const Control& control);

/// The base of views: a `Widget` that shows a control of type `Kind`.
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

  /// Updates what is expensive to show, such as many rows.
  virtual void Follow() {}
  /// Calls Follow() once, after the handler that changes the control has returned.
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
