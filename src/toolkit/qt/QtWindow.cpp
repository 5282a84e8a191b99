#include "toolkit/qt/QtWindow.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QTimer>

#include "toolkit/Platform.h"
#include "toolkit/TextField.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/MenuBarView.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

QSize ToQt(Size size) { return {size.Width, size.Height}; }

/// What the menus take of a window's height: nothing where there are none, or where the desktop shows them elsewhere.
int MenuHeight(const QWidget* menus) { return menus == nullptr ? 0 : menus->sizeHint().height(); }

}  // namespace

QtWindow::QtWindow(std::shared_ptr<Window> window) : window_(std::move(window)) {
  setWindowTitle(qt::ToQt(window_->Title()));
  if (const auto& menus = window_->Menus()) menus_ = new MenuBarView(*menus, *this);
  content_ = new QWidget(this);
  for (Control* control : window_->Controls()) views_[control] = MakeView(*control, *content_);
  OrderByTab();
  // The sizes of a window are those of its content.
  const QSize menus(0, MenuHeight(menus_));
  setMinimumSize(ToQt(window_->MinimumSize()) + menus);
  setMaximumSize(ToQt(window_->MaximumSize()) + menus);
  resize(ToQt(window_->ContentSize()) + menus);
  LayOut();
}

void QtWindow::resizeEvent(QResizeEvent* /*event*/) { LayOut(); }

void QtWindow::LayOut() {
  const int menuHeight = MenuHeight(menus_);
  if (menus_ != nullptr) menus_->setGeometry(0, 0, width(), menuHeight);
  content_->setGeometry(0, menuHeight, width(), height() - menuHeight);
  window_->Resize({.Width = content_->width(), .Height = content_->height()});
  PlaceControls();
}

void QtWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  Platform::Current().Dispatch([this] { window_->CloseAsUser(); });
}

// The controls are painted after their window, and all of it reaches the screen before the next event.
void QtWindow::paintEvent(QPaintEvent* /*event*/) {
  if (std::exchange(painted_, true)) return;
  QTimer::singleShot(0, QCoreApplication::instance(),
                     [window = window_] { Platform::Current().Dispatch([&] { window->TellPainted(); }); });
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
  std::stable_sort(order.begin(), order.end(), [](const Control* a, const Control* b) {
    return std::pair(a->Panel(), a->TabOrder()) < std::pair(b->Panel(), b->TabOrder());
  });
  for (std::size_t index = 1; index < order.size(); ++index)
    setTabOrder(views_[order[index - 1]], views_[order[index]]);

  const auto field = std::find_if(order.begin(), order.end(), [](const Control* control) {
    return dynamic_cast<const TextField*>(control) != nullptr && control->Enabled() && control->IsOnScreen();
  });
  const auto first = field != order.end() ? field : order.begin();
  if (first != order.end()) views_[*first]->setFocus();
}

}  // namespace toolkit::qt
