#include "toolkit/qt/TextFieldView.h"

#include <limits>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {

TextFieldView::TextFieldView(TextField& field, QWidget& parent) : ViewOf(field, parent) {
  setMaxLength(std::numeric_limits<int>::max());
  // Not every way to write into a field edits it: assistive programs set its text.
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    Platform::Current().Dispatch([&] { Shown().Type(FromQt(text)); });
    TextFieldView::Refresh();  // the field may have refused it
  });
  connect(this, &QLineEdit::returnPressed, this,
          [this] { Platform::Current().Dispatch([this] { Shown().PressEnter(); }); });
  TextFieldView::Refresh();
}

void TextFieldView::Refresh() {
  ShowCommonProperties(*this, Shown());
  setEchoMode(Shown().Masked() == Masking::Password ? Password : Normal);
  setPlaceholderText(ToQt(Shown().CueText()));
  const QString wanted = ToQt(Shown().Text());
  if (text() == wanted) return;
  const QSignalBlocker notTheUser(this);
  setText(wanted);
}

}  // namespace toolkit::qt
