#pragma once

#include <QDialog>
#include <QElapsedTimer>

#include "toolkit/MessageDialog.h"

class QPushButton;

namespace toolkit::qt {

/// A message dialog on the screen. Its texts are plain, wrap, and scroll if they are long, so that the box never
/// outgrows the screen. Assistive programs read them out when it appears, and what it is about, which its frame says
/// too. Keys that were meant for something else when it came do nothing: it takes none before it has been on the screen
/// for a moment, and a key within that moment lets it begin anew.
class DialogBox final : public QDialog {
 public:
  /// `owner` is the window that asks, and `about` what the dialog is about; both may be missing.
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
  // Since the box was shown, or since the last key that it did not take.
  QElapsedTimer moment_;
  DialogButton pressed_ = DialogButton::Cancel;
};

}  // namespace toolkit::qt
