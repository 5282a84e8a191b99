#pragma once

#include <string>

namespace toolkit {

enum class DialogButton { Action, Alternate, Cancel };

enum class DialogIcon { None, Caution };

/// A modal question with up to three buttons. By default it is a message with an "OK" button.
struct MessageDialog {
  struct Button {
    /// With access key markers as in a PushButton; empty for the desktop's own caption.
    std::string Caption;
    bool Visible = false;
  };

  DialogIcon Icon = DialogIcon::None;
  /// Plain text, like all texts of the dialog.
  std::string Message;
  /// Details, shown below the message.
  std::string Explanation;
  /// The subject of the dialog, in a few words, for its frame and for screen readers; by default the subject of the
  /// window that owns it.
  std::string About;
  Button ActionButton{.Caption = "", .Visible = true};
  Button AlternateActionButton;
  Button CancelButton;

  /// Shows the dialog and waits for the user. Returns the button that ended it; closing the dialog in any other way,
  /// and quitting the program, counts as Cancel. No handler starts meanwhile, but the end of the desktop session may
  /// have closed the windows.
  [[nodiscard]] DialogButton ShowModal() const;
};

/// Shows `text`, as plain text and without a title, and waits for the user like MessageDialog::ShowModal.
void MsgBox(std::string text, std::string about = {});

}  // namespace toolkit
