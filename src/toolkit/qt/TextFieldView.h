#pragma once

#include "toolkit/TextField.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/EditViews.h"

namespace toolkit::qt {

class TextFieldView final : public ViewOf<EditLine, TextField> {
 public:
  TextFieldView(TextField& field, QWidget& parent);
  void Refresh() override;
};

}  // namespace toolkit::qt
