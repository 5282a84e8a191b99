#include "toolkit/qt/PushButtonView.h"

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

}  // namespace toolkit::qt
