#pragma once

#include <QLabel>

#include "toolkit/Label.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

class LabelView final : public ViewOf<QLabel, Label> {
 public:
  LabelView(Label& label, QWidget& parent);
  void Refresh() override;
};

}  // namespace toolkit::qt
