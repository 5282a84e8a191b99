#include "tour/Screen.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QScreen>
#include <QWindow>

namespace tour::screen {
namespace {

/// Every visible window, newest first.
QList<QWidget*> AllWindows() {
  QList<QWidget*> found;
  const QWidgetList widgets = QApplication::topLevelWidgets();
  for (const QWindow* window : QGuiApplication::topLevelWindows()) {
    for (QWidget* widget : widgets) {
      if (widget->windowHandle() == window && widget->isVisible()) found.prepend(widget);
    }
  }
  return found;
}

}  // namespace

QWidget* NewestWindow(const QString& title) {
  for (QWidget* window : AllWindows()) {
    if (window->windowTitle() == title) return window;
  }
  return nullptr;
}

QWidget* Find(const QString& name) {
  for (QWidget* window : AllWindows()) {
    if (window->objectName() == name) return window;
    for (auto* part : window->findChildren<QWidget*>(name)) {
      if (part->isVisible()) return part;
    }
  }
  return nullptr;
}

QWidget* Box() { return Find("dialogBox"); }

QString TextOf(const QWidget& part) {
  if (const auto* label = qobject_cast<const QLabel*>(&part)) return label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&part)) {
    static const QRegularExpression accessKey("&(.)");
    return button->text().replace(accessKey, "\\1");
  }
  if (const auto* menu = qobject_cast<const QComboBox*>(&part)) return menu->currentText();
  return {};
}

int RowCount(const QString& list) {
  const auto* view = FindAs<QAbstractItemView>(list);
  return view == nullptr ? -1 : view->model()->rowCount();
}

int RowNamed(const QString& list, const QString& name) {
  const auto* view = FindAs<QAbstractItemView>(list);
  for (int row = 0; row < RowCount(list); ++row) {
    if (view->model()->index(row, 0).data().toString() == name) return row;
  }
  return -1;
}

QWidget* Front() {
  if (QWidget* box = Box()) return box;
  if (QWidget* active = QApplication::activeWindow()) return active;
  const QList<QWidget*> windows = AllWindows();
  return windows.isEmpty() ? nullptr : windows.first();
}

bool SavePicture(const QString& path) {
  QWidget* window = Front();
  if (window == nullptr) return false;
  const bool canReadScreen = QGuiApplication::platformName() == "xcb";
  const QRect place = window->geometry();
  const QPixmap picture = canReadScreen
                              ? window->screen()->grabWindow(0, place.x(), place.y(), place.width(), place.height())
                              : window->grab();
  return picture.save(path);
}

}  // namespace tour::screen
