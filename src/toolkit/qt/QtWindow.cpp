#include "toolkit/qt/QtWindow.h"

#include <algorithm>
#include <exception>
#include <utility>
#include <vector>

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
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

/// The field that the user is typing into in any window of the program, nullptr if there is none.
QWidget* FieldInUse() {
  QWidget* focus = QApplication::focusWidget();
  return focus != nullptr && focus->testAttribute(Qt::WA_InputMethodEnabled) ? focus : nullptr;
}

bool HasDefaultButton(const Window& window) {
  return std::ranges::any_of(window.Controls(), [](const Control* control) {
    const auto* button = dynamic_cast<const PushButton*>(control);
    return button != nullptr && button->Role() == ButtonRole::Default;
  });
}

}  // namespace

QtWindow::QtWindow(std::shared_ptr<Window> window) : window_(std::move(window)) {
  window_->ShowIn(this);
  if (const auto& menus = window_->Menus()) menus_ = new MenuBarView(*menus, *this);
  content_ = new QWidget(this);
  content_->setObjectName("content");
  content_->installEventFilter(this);
  for (Control* control : window_->Controls()) views_[control] = MakeView(*control, *content_);
  OrderByTab();
  ShowFrame();
  LayOut();
  QtWindow::Refresh();
  QtWindow::RefreshBusy();
}

// The views must go before the controls that they show.
QtWindow::~QtWindow() {
  window_->LeaveView(*this);
  delete content_;
}

// The sizes of a window are those of its content.
void QtWindow::ShowFrame() {
  const QSize menus(0, MenuHeight(menus_));
  resize(ToQt(window_->ContentSize()) + menus);
  if (window_->Frame() == WindowFrame::Standard) {
    setMinimumSize(ToQt(window_->MinimumSize()) + menus);
    setMaximumSize(ToQt(window_->MaximumSize()) + menus);
    return;
  }
  setFixedSize(size());
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  const QWidget* active = QApplication::activeWindow();
  const QScreen* target = active != nullptr ? active->screen() : screen();
  const QRect free = target->availableGeometry();
  const QPoint middle = free.center() - rect().center();
  // On a screen that is too small, the title and the menus stay in reach.
  move(std::max(middle.x(), free.left()), std::max(middle.y(), free.top()));
}

void QtWindow::Appear() {
  QWidget* field = window_->Origin() == WindowOrigin::Unasked ? FieldInUse() : nullptr;
  setAttribute(Qt::WA_ShowWithoutActivating, field != nullptr);
  show();
  if (field == nullptr) return ComeToFront();
  // Some desktops activate a new window whatever it asks for.
  field->window()->activateWindow();
  raise();
  QApplication::alert(this);
}

void QtWindow::ComeToFront() {
  raise();
  activateWindow();
}

void QtWindow::Refresh() {
  setWindowTitle(qt::ToQt(window_->Title()));
  content_->update();
}

// A pointer of a part of the window goes before that of the whole window.
void QtWindow::RefreshBusy() {
  const bool isShown = testAttribute(Qt::WA_SetCursor);
  if (window_->Busy() == isShown) return;
  if (isShown) {
    unsetCursor();
    for (const auto& [part, cursor] : std::exchange(ownCursors_, {})) {
      if (part != nullptr) part->setCursor(cursor);
    }
    return;
  }
  for (QWidget* part : findChildren<QWidget*>()) {
    if (part->isWindow() || !part->testAttribute(Qt::WA_SetCursor)) continue;
    ownCursors_.emplace_back(part, part->cursor());
    part->setCursor(Qt::BusyCursor);
  }
  setCursor(Qt::BusyCursor);
}

void QtWindow::resizeEvent(QResizeEvent* /*event*/) { LayOut(); }

void QtWindow::LayOut() {
  const int menuHeight = MenuHeight(menus_);
  if (menus_ != nullptr) menus_->setGeometry(0, 0, width(), menuHeight);
  content_->setGeometry(0, menuHeight, width(), height() - menuHeight);
  window_->Resize({.Width = content_->width(), .Height = content_->height()});
  PlaceControls();
}

// A window that refuses to close stays as it is.
void QtWindow::closeEvent(QCloseEvent* event) {
  Platform::Current().Dispatch([this] { window_->CloseAsUser(); });
  event->setAccepted(window_->IsClosed());
}

void QtWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) Platform::Current().TellActivated(*window_);
}

// Only keys that the widget with the keyboard has no use for come here. Where there is a default button, Return is for
// it alone: the one that has the keyboard may have got it from another that was disabled under it. A frame without a
// close button can keep the desktop from closing the window by the keyboard.
void QtWindow::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && !event->isAutoRepeat();
  const bool isEscape = event->key() == Qt::Key_Escape;
  const bool isAltF4 = event->key() == Qt::Key_F4 && event->modifiers() == Qt::AltModifier;
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  if (isPlain && isReturn && focused != nullptr && !HasDefaultButton(*window_)) {
    focused->click();
  } else if (isPlain && (isReturn || isEscape)) {
    const PushButton* button = window_->ButtonOf(isReturn ? ButtonRole::Default : ButtonRole::Cancel);
    if (button != nullptr) Platform::Current().Dispatch([&] { button->Press(); });
  } else if (isAltF4 || (event->matches(QKeySequence::Close) && window_->Frame() == WindowFrame::Standard)) {
    close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == content_ && event->type() == QEvent::Paint) PaintContent();
  return QWidget::eventFilter(watched, event);
}

// An exception is told once, and not while Qt paints. The background stays plain from then on.
void QtWindow::PaintContent() {
  if (cannotPaint_) return;
  QPainter painter(content_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  QtGraphics graphics(painter, content_->size(), pictures_);
  try {
    window_->Paint(graphics);
  } catch (...) {
    cannotPaint_ = true;
    QTimer::singleShot(0, QCoreApplication::instance(), [fault = std::current_exception()] {
      Platform::Current().WhenFree([fault] { std::rethrow_exception(fault); });
    });
  }
}

// The controls are painted after their window, and all of it reaches the screen before the next event.
void QtWindow::paintEvent(QPaintEvent* /*event*/) {
  if (std::exchange(painted_, true)) return;
  QTimer::singleShot(0, QCoreApplication::instance(),
                     [window = window_] { Platform::Current().WhenFree([window] { window->TellPainted(); }); });
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
