#pragma once

#include <QLineEdit>

#include "toolkit/TextField.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

class TextFieldView final : public ViewOf<QLineEdit, TextField> {
 public:
  TextFieldView(TextField& field, QWidget& parent);
  void Refresh() override;
};

}  // namespace toolkit::qt
