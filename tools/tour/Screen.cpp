#include "tour/Screen.h"

#include <algorithm>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QTextEdit>
#include <QWindow>

namespace tour::screen {
namespace {

/// Every visible window, oldest first.
QList<QWidget*> AllWindows() {
  QList<QWidget*> found;
  const QWidgetList widgets = QApplication::topLevelWidgets();
  for (const QWindow* window : QGuiApplication::topLevelWindows()) {
    for (QWidget* widget : widgets) {
      if (widget->windowHandle() == window && widget->isVisible()) found.append(widget);
    }
  }
  return found;
}

}  // namespace

QList<QWidget*> Windows(const QString& title) {
  QList<QWidget*> found = AllWindows();
  found.removeIf([&](const QWidget* window) { return window->windowTitle() != title; });
  return found;
}

QWidget* Find(const QString& name) {
  QList<QWidget*> windows = AllWindows();
  std::reverse(windows.begin(), windows.end());
  for (QWidget* window : windows) {
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
  if (const auto* field = qobject_cast<const QLineEdit*>(&part)) return field->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&part)) {
    static const QRegularExpression accessKey("&(.)");
    return button->text().replace(accessKey, "\\1");
  }
  if (const auto* menu = qobject_cast<const QComboBox*>(&part)) return menu->currentText();
  if (const auto* page = qobject_cast<const QTextEdit*>(&part)) return page->toPlainText();
  if (const auto* message = qobject_cast<const QPlainTextEdit*>(&part)) return message->toPlainText();
  return {};
}

QString Cell(const QString& list, int row, int column) {
  const auto* view = FindAs<QAbstractItemView>(list);
  return view == nullptr ? QString() : view->model()->index(row, column).data().toString();
}

int RowCount(const QString& list) {
  const auto* view = FindAs<QAbstractItemView>(list);
  return view == nullptr ? -1 : view->model()->rowCount();
}

int RowNamed(const QString& list, const QString& name) {
  for (int row = 0; row < RowCount(list); ++row) {
    if (Cell(list, row, 0) == name) return row;
  }
  return -1;
}

int SelectedRow(const QString& list) {
  const auto* view = FindAs<QAbstractItemView>(list);
  if (view == nullptr) return -1;
  const QModelIndexList rows = view->selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.front().row();
}

QWidget* Front() {
  if (QWidget* box = Box()) return box;
  if (QWidget* active = QApplication::activeWindow()) return active;
  const QList<QWidget*> windows = AllWindows();
  return windows.isEmpty() ? nullptr : windows.last();
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
