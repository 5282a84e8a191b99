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
  // Not every way to write into a field edits it: assistive programs set its text.
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    Platform::Current().Dispatch([&] { Shown().Type(FromQt(WithoutLineEndsAround(text))); });
    TextFieldView::Refresh();  // the field may hold another text
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
