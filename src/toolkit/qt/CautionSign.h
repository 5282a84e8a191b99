#pragma once

#include <QWidget>

namespace toolkit::qt {

/// The sign of a dialog that wants care, drawn as finely as the screen can show it.
class CautionSign final : public QWidget {
 public:
  CautionSign();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace toolkit::qt
