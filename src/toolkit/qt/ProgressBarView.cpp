#include "toolkit/qt/ProgressBarView.h"

#include <algorithm>

namespace toolkit::qt {

ProgressBarView::ProgressBarView(ProgressBar& bar, QWidget& parent) : ViewOf(bar, parent) {
  setTextVisible(false);
  ProgressBarView::Refresh();
}

// In Qt, an empty range selects the indeterminate bar.
void ProgressBarView::Refresh() {
  ShowCommonProperties(*this, Model());
  const int maximum = std::max(Model().Maximum(), 0);
  setRange(0, maximum);
  setValue(std::clamp(Model().Value(), 0, maximum));
}

}  // namespace toolkit::qt
