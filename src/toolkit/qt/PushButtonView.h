#pragma once

#include <QPushButton>

#include "toolkit/PushButton.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

class PushButtonView final : public ViewOf<QPushButton, PushButton> {
 public:
  PushButtonView(PushButton& button, QWidget& parent);
  void Refresh() override;
};

}  // namespace toolkit::qt
