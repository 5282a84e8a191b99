#pragma once

#include <QPixmap>

#include "toolkit/Canvas.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

class CanvasView final : public ViewOf<QWidget, Canvas> {
 public:
  CanvasView(Canvas& canvas, QWidget& parent);
  void Refresh() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap backdrop_;
};

}  // namespace toolkit::qt
