#pragma once

#include <QLineEdit>
#include <QTextBrowser>

#include "toolkit/qt/EditTarget.h"

namespace toolkit::qt {

/// A line of text that can be edited. It keeps its selection while the user is in a menu.
class EditLine : public QLineEdit, public EditTarget {
 public:
  using QLineEdit::QLineEdit;
  [[nodiscard]] bool CanEdit(StandardAction action) const override;
  void Edit(StandardAction action) override;

 protected:
  void focusOutEvent(QFocusEvent* event) override;
};

/// A page that can be read, and copied from.
class EditPage : public QTextBrowser, public EditTarget {
 public:
  using QTextBrowser::QTextBrowser;
  [[nodiscard]] bool CanEdit(StandardAction action) const override;
  void Edit(StandardAction action) override;
};

}  // namespace toolkit::qt
