#pragma once

#include <QDialog>

#include "toolkit/MessageDialog.h"

class QPushButton;

namespace toolkit::qt {

/// A message dialog on the screen. Its texts are plain, wrap, and scroll if they are long, so that the box never
/// outgrows the screen. Assistive programs read them out when it appears.
class DialogBox final : public QDialog {
 public:
  explicit DialogBox(const MessageDialog& dialog);

  /// The button that ended the dialog; Cancel until one has.
  [[nodiscard]] DialogButton Pressed() const { return pressed_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeTexts(const MessageDialog& dialog);
  QWidget* MakeButtons(const MessageDialog& dialog);

  QPushButton* defaultButton_ = nullptr;
  DialogButton pressed_ = DialogButton::Cancel;
};

}  // namespace toolkit::qt
