#pragma once

#include <QProgressBar>

#include "toolkit/ProgressBar.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

class ProgressBarView final : public ViewOf<QProgressBar, ProgressBar> {
 public:
  ProgressBarView(ProgressBar& bar, QWidget& parent);
  void Refresh() override;
};

}  // namespace toolkit::qt
