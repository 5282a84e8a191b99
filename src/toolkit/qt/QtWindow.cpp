#include "toolkit/qt/QtWindow.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <QCloseEvent>

#include "toolkit/Platform.h"
#include "toolkit/TextField.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

QSize ToQt(Size size) { return {size.Width, size.Height}; }

}  // namespace

QtWindow::QtWindow(std::shared_ptr<Window> window) : window_(std::move(window)) {
  setWindowTitle(qt::ToQt(window_->Title()));
  for (Control* control : window_->Controls()) views_[control] = MakeView(*control, *this);
  OrderByTab();
  setMinimumSize(ToQt(window_->MinimumSize()));
  setMaximumSize(ToQt(window_->MaximumSize()));
  resize(ToQt(window_->ContentSize()));
  PlaceControls();
}

// Views refer to controls, and this may be the last to hold the window with its controls.
QtWindow::~QtWindow() {
  for (const auto& [control, view] : views_) delete view;
}

void QtWindow::resizeEvent(QResizeEvent* /*event*/) {
  window_->Resize({.Width = width(), .Height = height()});
  PlaceControls();
}

void QtWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  Platform::Current().Dispatch([this] { window_->Close(); });
}

void QtWindow::PlaceControls() {
  for (const auto& [control, view] : views_) {
    const Rect place = window_->PlaceOf(*control);
    view->setGeometry(place.Left, place.Top, place.Width, place.Height);
  }
}

// The first text field gets the focus, since that is what a user who opens the window wants to fill.
void QtWindow::OrderByTab() {
  std::vector<Control*> order = window_->Controls();
  std::erase_if(order, [](const Control* control) { return control->Focus() == FocusPolicy::Refuses; });
  std::stable_sort(order.begin(), order.end(),
                   [](const Control* a, const Control* b) { return a->TabOrder() < b->TabOrder(); });
  for (std::size_t index = 1; index < order.size(); ++index) setTabOrder(views_[order[index - 1]], views_[order[index]]);

  const auto field = std::find_if(order.begin(), order.end(), [](const Control* control) {
    return dynamic_cast<const TextField*>(control) != nullptr && control->Enabled();
  });
  const auto first = field != order.end() ? field : order.begin();
  if (first != order.end()) views_[*first]->setFocus();
}

}  // namespace toolkit::qt
