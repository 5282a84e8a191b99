#include "toolkit/qt/TextFieldView.h"

#include <limits>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {

TextFieldView::TextFieldView(TextField& field, QWidget& parent) : ViewOf(field, parent) {
  setMaxLength(std::numeric_limits<int>::max());
  connect(this, &QLineEdit::textEdited, this,
          [this](const QString& text) { Platform::Current().Dispatch([&] { Shown().Type(FromQt(text)); }); });
  TextFieldView::Refresh();
}

void TextFieldView::Refresh() {
  ShowCommonProperties(*this, Shown());
  setEchoMode(Shown().Masked() == Masking::Password ? Password : Normal);
  setPlaceholderText(ToQt(Shown().CueText()));
  const QString wanted = ToQt(Shown().Text());
  if (text() != wanted) setText(wanted);
}

}  // namespace toolkit::qt
