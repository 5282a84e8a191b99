#include "toolkit/qt/PushButtonView.h"

#include <QKeyEvent>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {

PushButtonView::PushButtonView(PushButton& button, QWidget& parent) : ViewOf(button, parent) {
  connect(this, &QPushButton::clicked, this, [this] { Platform::Current().Dispatch([this] { Shown().Press(); }); });
  PushButtonView::Refresh();
}

void PushButtonView::Refresh() {
  ShowCommonProperties(*this, Shown());
  setText(ToQt(Shown().Caption()));
  setDefault(Shown().Role() == ButtonRole::Default);
}

// Qt lets Return press only the buttons of a dialog.
void PushButtonView::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isReturn) {
    QPushButton::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    click();
  }
}

}  // namespace toolkit::qt
