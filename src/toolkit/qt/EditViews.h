#pragma once

#include <QLineEdit>
#include <QTextBrowser>

#include "toolkit/qt/EditTarget.h"

namespace toolkit::qt {

/// An editable line of text. It keeps its selection while the user is in a menu.
class EditLine : public QLineEdit, public EditTarget {
 public:
  using QLineEdit::QLineEdit;
  [[nodiscard]] bool CanEdit(StandardAction action) const override;
  void Edit(StandardAction action) override;

 protected:
  void focusOutEvent(QFocusEvent* event) override;
};

/// A read-only page whose text can be copied.
class EditPage : public QTextBrowser, public EditTarget {
 public:
  using QTextBrowser::QTextBrowser;
  [[nodiscard]] bool CanEdit(StandardAction action) const override;
  void Edit(StandardAction action) override;
};

}  // namespace toolkit::qt
