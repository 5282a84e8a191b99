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
#include <QTabWidget>
#include <QTimer>
#include <QWindow>

#include "toolkit/Platform.h"
#include "toolkit/TextField.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/MenuBarView.h"
#include "toolkit/qt/PushButtonView.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

// The controls are designed for fonts up to this height in pixels. For larger ones, everything is scaled up.
constexpr double designedFontHeight = 17;
// The approximate size of a window manager's frame.
constexpr QSize roomForFrame(4, 32);

// The margin beside the subject, and between it and the menus.
constexpr int subjectMargin = 8;

/// The field that the user is typing into, in any window of the program; nullptr if there is none.
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

bool IsReturn(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

QtWindow::QtWindow(std::shared_ptr<Window> window)
    : window_(std::move(window)), hasDefault_(window_->Origin() == WindowOrigin::Asked) {
  window_->ShowIn(this);
  if (const auto& menus = window_->Menus()) menus_ = new MenuBarView(*menus, *this);
  content_ = new QWidget(this);
  content_->setObjectName("content");
  qApp->installEventFilter(this);
  for (Control* control : window_->Controls()) views_[control] = MakeView(*control, *content_);
  OrderByTab();
  SetUpSubject();
  scale_ = FindScale();
  ShowFrame();
  QtWindow::Refresh();
  QtWindow::RefreshBusy();
}

// The views must be destroyed before their controls.
QtWindow::~QtWindow() {
  window_->LeaveView(*this);
  delete content_;
}

std::shared_ptr<Window> QtWindow::Of(const QWidget& view) {
  const auto* window = dynamic_cast<const QtWindow*>(view.window());
  return window == nullptr ? nullptr : window->window_;
}

double QtWindow::ScaleOf(const QWidget& view) {
  const auto* window = dynamic_cast<const QtWindow*>(view.window());
  return window == nullptr ? 1 : window->scale_;
}

QScreen* QtWindow::TargetScreen() const {
  const QWidget* active = QApplication::activeWindow();
  return active != nullptr ? active->screen() : screen();
}

/// As large as the font requires, but not larger than the screen. Only a window of fixed size may be scaled down for
/// that.
double QtWindow::FindScale() const {
  const QSize free = TargetScreen()->availableGeometry().size() - roomForFrame - QSize(0, HeightOfTop());
  const Size designed = window_->ContentSize();
  const double largest = std::min(static_cast<double>(free.width()) / designed.Width,
                                  static_cast<double>(free.height()) / designed.Height);
  const double wanted = std::max(fontMetrics().height() / designedFontHeight, 1.0);
  return std::min(wanted, window_->Frame() == WindowFrame::Fixed ? largest : std::max(largest, 1.0));
}

/// The size of the window for that size of its content.
QSize QtWindow::Around(Size content) const {
  return QSize(qRound(content.Width * scale_), qRound(content.Height * scale_) + HeightOfTop())
      .boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

// Window's sizes are those of its content.
void QtWindow::ShowFrame() {
  resize(Around(window_->ContentSize()));
  if (window_->Frame() == WindowFrame::Standard) {
    setMinimumSize(Around(window_->MinimumSize()));
    setMaximumSize(Around(window_->MaximumSize()));
    return;
  }
  setFixedSize(size());
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  const QRect free = TargetScreen()->availableGeometry();
  const QPoint middle = free.center() - rect().center();
  // On a screen that is barely large enough, the whole frame should be visible, or at least the title and the menus.
  const int lowest = free.bottom() - height() - roomForFrame.height();
  move(std::max(middle.x(), free.left()), std::max(std::min(middle.y(), lowest), free.top()));
}

void QtWindow::Appear() {
  QWidget* field = window_->Origin() == WindowOrigin::Unasked ? FieldInUse() : nullptr;
  setAttribute(Qt::WA_ShowWithoutActivating, field != nullptr);
  show();
  if (field == nullptr) return ComeToFront();
  // Some desktops activate a new window regardless of the attribute.
  field->window()->activateWindow();
  raise();
  QApplication::alert(this);
}

void QtWindow::ComeToFront() {
  raise();
  activateWindow();
}

void QtWindow::Refresh() {
  const QString subject = DisplayName(window_->Subject());
  setWindowTitle(qt::ToQt(window_->Title()));
  setWindowIconText(subject);  // after the title, which would overwrite it
  setAccessibleDescription(subject);
  LayOut();
  content_->update();
}

void QtWindow::SetUpSubject() {
  subject_.setObjectName("subject");
  subject_.setTextFormat(Qt::PlainText);
  subject_.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  subject_.raise();  // over the menus
  subject_.setVisible(!window_->Subject().empty());
}

/// The height of the line with the menus and the subject: 0 if there are none, or if the desktop shows the menus
/// elsewhere.
int QtWindow::HeightOfTop() const {
  const int menus = menus_ == nullptr ? 0 : menus_->sizeHint().height();
  return std::max(menus, window_->Subject().empty() ? 0 : subject_.sizeHint().height());
}

// The cursor of a child widget overrides that of the window.
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
  const int top = HeightOfTop();
  const int menuWidth = menus_ == nullptr ? 0 : menus_->sizeHint().width();
  if (menus_ != nullptr) menus_->setGeometry(0, 0, width(), top);
  subject_.setGeometry(QRect(menuWidth, 0, width() - menuWidth, top).adjusted(subjectMargin, 0, -subjectMargin, 0));
  const QString subject = DisplayName(window_->Subject());
  subject_.setText(fontMetrics().elidedText(subject, Qt::ElideRight, subject_.width()));
  content_->setGeometry(0, top, width(), height() - top);
  window_->Resize({.Width = qRound(content_->width() / scale_), .Height = qRound(content_->height() / scale_)});
  PlaceControls();
}

// A window may refuse to close.
void QtWindow::closeEvent(QCloseEvent* event) {
  Platform::Current().Dispatch([this] { window_->CloseAsUser(); });
  event->setAccepted(window_->IsClosed());
}

void QtWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) Platform::Current().TellActivated(*window_);
}

// Only called for keys that the focused widget ignores. If the frame has no close button, the desktop may not support
// closing by the keyboard.
void QtWindow::keyPressEvent(QKeyEvent* event) {
  const bool isAltF4 = event->key() == Qt::Key_F4 && event->modifiers() == Qt::AltModifier;
  if (isAltF4 || (event->matches(QKeySequence::Close) && window_->Frame() == WindowFrame::Standard)) {
    close();
  } else if (!PressForKey(*event) && !ChangeTab(*event)) {
    QWidget::keyPressEvent(event);
  }
}

/// Handles Return and Escape. If there is a default button, Return presses only that: another button may have received
/// the focus because the previous one was disabled.
bool QtWindow::PressForKey(const QKeyEvent& event) {
  const bool isReturn = IsReturn(event);
  const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && !event.isAutoRepeat();
  if (!isPlain || (!isReturn && event.key() != Qt::Key_Escape)) return false;
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  if (isReturn && focused != nullptr && !HasDefaultButton(*window_)) {
    focused->click();
    return true;
  }
  const PushButton* button = window_->ButtonOf(isReturn ? ButtonRole::Default : ButtonRole::Cancel);
  Platform::Current().Dispatch([&] {
    if (button != nullptr && (hasDefault_ || !isReturn)) button->Press();
    if (button == nullptr && !isReturn && !Platform::WaitsForUser()) window_->Escape();
  });
  return true;
}

/// Ctrl+Tab and Ctrl+Shift+Tab change the panel wherever the focus is in the window.
bool QtWindow::ChangeTab(const QKeyEvent& event) {
  const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  auto* tabs = findChild<QTabWidget*>();
  if (!isTab || !event.modifiers().testFlag(Qt::ControlModifier) || tabs == nullptr) return false;
  const int step = event.modifiers().testFlag(Qt::ShiftModifier) ? tabs->count() - 1 : 1;
  tabs->setCurrentIndex((tabs->currentIndex() + step) % tabs->count());
  return true;
}

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == content_ && event->type() == QEvent::Paint) PaintContent();
  const bool isInput = event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress;
  if (isInput && watched == windowHandle()) UserActs(*event);
  return QWidget::eventFilter(watched, event);
}

void QtWindow::UserActs(const QEvent& event) {
  disabled_ = nullptr;
  const int key = event.type() == QEvent::KeyPress ? static_cast<const QKeyEvent&>(event).key() : Qt::Key_Tab;
  if (hasDefault_ || (key != Qt::Key_Tab && key != Qt::Key_Backtab)) return;
  hasDefault_ = true;
  for (Control* control : window_->Controls()) {
    if (auto* button = dynamic_cast<PushButtonView*>(views_[control])) button->Refresh();
  }
}

void QtWindow::Enable(QWidget& view, bool isEnabled) {
  QWidget* focus = focusWidget();
  if (!isEnabled && view.isEnabled() && focus != nullptr && (focus == &view || view.isAncestorOf(focus))) {
    if (disabled_ == nullptr || focus != refuge_) disabled_ = focus;
    focusPreviousChild();
    refuge_ = focusWidget();
  }
  view.setEnabled(isEnabled);
  const bool returns = disabled_ != nullptr && disabled_->isEnabled() && focusWidget() == refuge_;
  if (returns) std::exchange(disabled_, nullptr)->setFocus();
}

void QtWindow::PaintContent() {
  if (cannotPaint_) return;
  QPainter painter(content_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.scale(scale_, scale_);
  const Size size = window_->ContentSize();
  QtGraphics graphics(painter, {size.Width, size.Height}, pictures_);
  try {
    window_->Paint(graphics);
  } catch (...) {
    cannotPaint_ = true;
    QTimer::singleShot(0, QCoreApplication::instance(), [fault = std::current_exception()] {
      Platform::Current().WhenFree([fault] { std::rethrow_exception(fault); });
    });
  }
}

// The controls are painted after their window, and everything reaches the screen before the next event.
void QtWindow::paintEvent(QPaintEvent* /*event*/) {
  if (std::exchange(painted_, true)) return;
  QTimer::singleShot(0, QCoreApplication::instance(),
                     [window = window_] { Platform::Current().WhenFree([window] { window->TellPainted(); }); });
}

void QtWindow::PlaceControls() {
  for (const auto& [control, view] : views_) {
    const Rect place = window_->PlaceOf(*control);
    const QRectF points(place.Left, place.Top, place.Width, place.Height);
    const QPoint corner = (points.topLeft() * scale_).toPoint();
    const QPoint end = (points.bottomRight() * scale_).toPoint();
    view->setGeometry(QRect(corner, QSize(end.x() - corner.x(), end.y() - corner.y())));
  }
}

// The first text field gets the initial focus.
void QtWindow::OrderByTab() {
  std::vector<Control*> order = window_->Controls();
  std::erase_if(order, [](const Control* control) { return control->Focus() == FocusPolicy::Refuses; });
  std::stable_sort(order.begin(), order.end(), [](const Control* a, const Control* b) {
    return std::pair(a->Panel(), a->TabOrder()) < std::pair(b->Panel(), b->TabOrder());
  });
  for (std::size_t index = 1; index < order.size(); ++index)
    setTabOrder(views_[order[index - 1]], views_[order[index]]);

  const auto field = std::find_if(order.begin(), order.end(), [](const Control* control) {
    return dynamic_cast<const TextField*>(control) != nullptr && control->CanBeUsed();
  });
  const auto first = field != order.end() ? field : order.begin();
  if (first != order.end()) views_[*first]->setFocus();
}

}  // namespace toolkit::qt
