#include "toolkit/qt/EditViews.h"

#include <QClipboard>
#include <QFocusEvent>
#include <QGuiApplication>

namespace toolkit::qt {

bool EditLine::CanEdit(StandardAction action) const {
  const bool canChange = isEnabled();
  const bool canShow = echoMode() == Normal;
  switch (action) {
    case StandardAction::Undo:
      return canChange && isUndoAvailable();
    case StandardAction::Cut:
      return canChange && canShow && hasSelectedText();
    case StandardAction::Copy:
      return canShow && hasSelectedText();
    case StandardAction::Paste:
      return canChange && !QGuiApplication::clipboard()->text().isEmpty();
    case StandardAction::Delete:
      return canChange && hasSelectedText();
    case StandardAction::SelectAll:
      return !text().isEmpty();
    default:
      return false;
  }
}

void EditLine::Edit(StandardAction action) {
  switch (action) {
    case StandardAction::Undo:
      return undo();
    case StandardAction::Cut:
      return cut();
    case StandardAction::Copy:
      return copy();
    case StandardAction::Paste:
      return paste();
    case StandardAction::Delete:
      return del();
    case StandardAction::SelectAll:
      return selectAll();
    default:
      break;
  }
}

// QLineEdit keeps its selection only for a menu that is opened by a click, not for one that is opened by the keyboard.
void EditLine::focusOutEvent(QFocusEvent* event) {
  const bool isForMenu = event->reason() == Qt::MenuBarFocusReason;
  QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
  QLineEdit::focusOutEvent(isForMenu ? &popup : event);
}

bool EditPage::CanEdit(StandardAction action) const {
  return (action == StandardAction::Copy && textCursor().hasSelection()) ||
         (action == StandardAction::SelectAll && !document()->isEmpty());
}

void EditPage::Edit(StandardAction action) { action == StandardAction::Copy ? copy() : selectAll(); }

}  // namespace toolkit::qt
