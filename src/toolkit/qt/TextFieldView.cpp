#include "toolkit/qt/TextFieldView.h"

#include <limits>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {

TextFieldView::TextFieldView(TextField& field, QWidget& parent) : ViewOf(field, parent) {
  setMaxLength(std::numeric_limits<int>::max());
  // textEdited() is not emitted when an assistive technology sets the text.
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    Platform::Current().Dispatch([&] { Model().Type(FromQt(text)); });
    TextFieldView::Refresh();  // the control may have refused it
  });
  connect(this, &QLineEdit::returnPressed, this,
          [this] { Platform::Current().Dispatch([this] { Model().PressEnter(); }); });
  TextFieldView::Refresh();
}

void TextFieldView::Refresh() {
  ShowCommonProperties(*this, Model());
  setEchoMode(Model().Masked() == Masking::Password ? Password : Normal);
  setPlaceholderText(ToQt(Model().CueText()));
  const QString wanted = ToQt(Model().Text());
  if (text() == wanted) return;
  const QSignalBlocker notTheUser(this);
  setText(wanted);
}

}  // namespace toolkit::qt
