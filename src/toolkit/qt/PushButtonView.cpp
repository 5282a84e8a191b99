#include "toolkit/qt/PushButtonView.h"

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {

PushButtonView::PushButtonView(PushButton& button, QWidget& parent) : ViewOf(button, parent) {
  connect(this, &QPushButton::clicked, this, [this] { Platform::Current().Dispatch([this] { Model().Press(); }); });
  PushButtonView::Refresh();
}

void PushButtonView::Refresh() {
  ShowCommonProperties(*this, Model());
  setText(ToQt(Model().Caption()));
  // setText() removes the shortcut if the text has no access key.
  if (!Model().Key().empty()) setShortcut(QKeySequence(ToQt(Model().Key())));
  setDefault(Model().Role() == ButtonRole::Default && dynamic_cast<const QtWindow&>(*window()).HasDefault());
}

}  // namespace toolkit::qt
