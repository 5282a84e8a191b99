#pragma once

#include <QTimer>

#include "toolkit/ProgressWheel.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

class ProgressWheelView final : public ViewOf<QWidget, ProgressWheel> {
 public:
  ProgressWheelView(ProgressWheel& wheel, QWidget& parent);
  void Refresh() override;

 protected:
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QTimer turning_;
  int step_ = 0;
};

}  // namespace toolkit::qt
