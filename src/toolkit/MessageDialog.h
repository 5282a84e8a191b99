#pragma once

#include <string>

namespace toolkit {

enum class DialogButton { Action, Alternate, Cancel };

enum class DialogIcon { None, Caution };

/// A modal question of up to three buttons. Without further settings it is a message with an "OK" button.
struct MessageDialog {
  struct Button {
    /// With marks as in a PushButton; the empty text stands for the desktop's own caption.
    std::string Caption;
    bool Visible = false;
  };

  DialogIcon Icon = DialogIcon::None;
  /// Plain text, as all texts of the dialog.
  std::string Message;
  /// Says more, below the message.
  std::string Explanation;
  /// What the dialog is about, in a few words, for its frame and for screen readers; where it is empty, the subject of
  /// the window that asks.
  std::string About;
  Button ActionButton{.Caption = "", .Visible = true};
  Button AlternateActionButton;
  Button CancelButton;

  /// Shows the dialog and waits for the user. Returns the button that ended it: closing the dialog any other way, and
  /// quitting the program, counts as Cancel. No handler starts meanwhile; only the end of the desktop session may have
  /// closed the windows.
  [[nodiscard]] DialogButton ShowModal() const;
};

/// Shows `text`, as plain text and without a heading, and waits for the user, as MessageDialog::ShowModal does.
void MsgBox(std::string text, std::string about = {});

}  // namespace toolkit
