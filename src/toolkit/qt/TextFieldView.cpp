#include "toolkit/qt/TextFieldView.h"

#include <limits>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

/// Line ends around a text were copied along with it, and would be no part of a name or a password.
QString WithoutLineEndsAround(QString text) {
  const auto isLineEnd = [](QChar character) { return character == '\n' || character == '\r'; };
  while (!text.isEmpty() && isLineEnd(text.back())) text.chop(1);
  while (!text.isEmpty() && isLineEnd(text.front())) text.remove(0, 1);
  return text;
}

}  // namespace

TextFieldView::TextFieldView(TextField& field, QWidget& parent) : ViewOf(field, parent) {
  setMaxLength(std::numeric_limits<int>::max());
  // textEdited() is not emitted when an assistive technology sets the text.
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    Platform::Current().Dispatch([&] { Model().Type(FromQt(WithoutLineEndsAround(text))); });
    TextFieldView::Refresh();  // the control may hold another text
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
