#pragma once

#include <QDialog>
#include <QElapsedTimer>

#include "toolkit/MessageDialog.h"

class QPushButton;

namespace toolkit::qt {

/// A message dialog on the screen. Its texts are plain, wrapped, and scroll if they are long, so that it always fits
/// the screen. Assistive technologies announce them, and its subject, when it appears. Ignores keys until 400 ms
/// have passed without one since it was shown: they were typed for another widget.
class DialogBox final : public QDialog {
 public:
  /// `owner` is the window that asks, `about` the subject; both may be missing.
  DialogBox(const MessageDialog& dialog, QWidget* owner, const QString& about);

  /// The button that ended the dialog; Cancel until one has.
  [[nodiscard]] DialogButton Pressed() const { return pressed_; }
  [[nodiscard]] bool TakesKeys() const { return moment_.isValid() && moment_.hasExpired(momentInMilliseconds); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  static constexpr int momentInMilliseconds = 400;

  QWidget* MakeTexts(const MessageDialog& dialog);
  QWidget* MakeButtons(const MessageDialog& dialog);

  QPushButton* defaultButton_ = nullptr;
  // Started when the box was shown, and again by each key that it ignored.
  QElapsedTimer moment_;
  DialogButton pressed_ = DialogButton::Cancel;
};

}  // namespace toolkit::qt
