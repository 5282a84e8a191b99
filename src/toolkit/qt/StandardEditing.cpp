#include "toolkit/qt/StandardEditing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>

#include "toolkit/qt/ListExport.h"
#include "toolkit/qt/ListTable.h"

namespace toolkit::qt {
namespace {

bool CanEditField(StandardAction action, const QLineEdit& field) {
  const bool canChange = field.isEnabled() && !field.isReadOnly();
  const bool canShow = field.echoMode() == QLineEdit::Normal;
  switch (action) {
    case StandardAction::Undo:
      return canChange && field.isUndoAvailable();
    case StandardAction::Cut:
      return canChange && canShow && field.hasSelectedText();
    case StandardAction::Copy:
      return canShow && field.hasSelectedText();
    case StandardAction::Paste:
      return canChange && !QGuiApplication::clipboard()->text().isEmpty();
    case StandardAction::Delete:
      return canChange && field.hasSelectedText();
    case StandardAction::SelectAll:
      return !field.text().isEmpty();
    default:
      return false;
  }
}

void EditField(StandardAction action, QLineEdit& field) {
  switch (action) {
    case StandardAction::Undo:
      field.undo();
      break;
    case StandardAction::Cut:
      field.cut();
      break;
    case StandardAction::Copy:
      field.copy();
      break;
    case StandardAction::Paste:
      field.paste();
      break;
    case StandardAction::Delete:
      field.del();
      break;
    case StandardAction::SelectAll:
      field.selectAll();
      break;
    default:
      break;
  }
}

}  // namespace

bool CanEdit(StandardAction action, QWidget* target) {
  if (const auto* field = qobject_cast<QLineEdit*>(target)) return CanEditField(action, *field);
  if (const auto* list = dynamic_cast<ListTable*>(target)) {
    return action == StandardAction::Copy && list->List().ListIndex() >= 0;
  }
  return false;
}

void Edit(StandardAction action, QWidget* target) {
  if (!CanEdit(action, target)) return;
  if (auto* field = qobject_cast<QLineEdit*>(target)) {
    EditField(action, *field);
  } else if (const auto* list = dynamic_cast<ListTable*>(target)) {
    CopySelectedRow(list->List());
  }
}

}  // namespace toolkit::qt
