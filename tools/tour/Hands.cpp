#include "tour/Hands.h"

#include <utility>

#include <QAbstractItemView>
#include <QApplication>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QWindow>

#include "tour/Screen.h"

namespace tour {
namespace {

/// Where to click: a place in a widget.
struct Spot {
  QWidget* Part = nullptr;
  QPoint Place;
};
using Aim = std::function<Spot()>;

QString Called(const QString& name) { return "“" + name + "”"; }

/// Activates the window, as a click on its frame would. Empty once it is active.
QString NotInFront(QWidget& window) {
  if (QApplication::activeWindow() == &window) return {};
  window.raise();
  window.activateWindow();
  return "the window " + Called(window.windowTitle()) + " does not come to the front";
}

QString CannotPoint(const Spot& spot, const QString& name) {
  if (spot.Part == nullptr) return "there is no " + Called(name);
  QWidget& window = *spot.Part->window();
  if (!spot.Part->isEnabled()) return Called(name) + " is disabled";
  if (screen::Box() != nullptr && screen::Box() != &window) return "a message box stands in front of " + Called(name);
  if (QString trouble = NotInFront(window); !trouble.isEmpty()) return trouble;
  const QPoint place = spot.Part->mapTo(&window, spot.Place);
  const QWidget* hit = window.rect().contains(place) ? window.childAt(place) : nullptr;
  const bool isFree = hit == spot.Part || spot.Part->isAncestorOf(hit);
  return isFree ? QString() : Called(name) + " is covered or out of sight";
}

Inputs Point(const QString& name, const Aim& aim) {
  const auto act = [aim] {
    const Spot spot = aim();
    QWidget* window = spot.Part->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, spot.Part->mapTo(window, spot.Place));
  };
  return {{[aim, name] { return CannotPoint(aim(), name); }, act}};
}

Spot RowSpot(const QString& list, const QString& name) {
  const auto* view = screen::FindAs<QAbstractItemView>(list);
  const int row = screen::RowNamed(list, name);
  if (view == nullptr || row < 0) return {};
  const QRect cell = view->visualRect(view->model()->index(row, 0));
  return {view->viewport(), {cell.left() + 20, cell.center().y()}};
}

Spot BoxButtonSpot(const QString& caption) {
  if (screen::Box() == nullptr) return {};
  for (auto* button : screen::Box()->findChildren<QPushButton*>()) {
    if (screen::TextOf(*button) == caption) return {button, button->rect().center()};
  }
  return {};
}

Spot TabSpot(const QString& tabs, const QString& caption) {
  const auto* panel = screen::FindAs<QTabWidget>(tabs);
  if (panel == nullptr) return {};
  for (int tab = 0; tab < panel->count(); ++tab) {
    if (panel->tabText(tab) == caption) return {panel->tabBar(), panel->tabBar()->tabRect(tab).center()};
  }
  return {};
}

QString CannotType() {
  QWidget* front = screen::Front();
  if (front == nullptr) return "no window has the keyboard";
  return QApplication::activePopupWidget() != nullptr ? QString() : NotInFront(*front);
}

Inputs PressKey(Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers) {
  return {
      {CannotType, [=] { QTest::sendKeyEvent(QTest::Click, QGuiApplication::focusWindow(), key, text, modifiers); }}};
}

}  // namespace

Inputs operator+(Inputs first, Inputs second) {
  first.insert(first.end(), std::make_move_iterator(second.begin()), std::make_move_iterator(second.end()));
  return first;
}

Inputs Click(const QString& name) {
  return Point(name, [name] {
    QWidget* part = screen::Find(name);
    return part == nullptr ? Spot() : Spot{part, part->rect().center()};
  });
}

Inputs ClickTab(const QString& tabs, const QString& caption) {
  return Point(caption, [=] { return TabSpot(tabs, caption); });
}

Inputs ClickRow(const QString& list, const QString& row) {
  return Point(row, [=] { return RowSpot(list, row); });
}

Inputs PressInBox(const QString& caption) {
  return Point(caption, [=] { return BoxButtonSpot(caption); });
}

Inputs Key(Qt::Key key, Qt::KeyboardModifiers modifiers) { return PressKey(key, {}, modifiers); }

Inputs Keys(const QString& text) {
  Inputs inputs;
  for (const QChar letter : text) {
    inputs = std::move(inputs) + PressKey(static_cast<Qt::Key>(letter.toUpper().unicode()), letter, Qt::NoModifier);
  }
  return inputs;
}

Inputs Fill(const QString& field, const QString& text) {
  return Click(field) + Key(Qt::Key_A, Qt::ControlModifier) + Key(Qt::Key_Delete) + Keys(text);
}

Inputs BringToFront(const QString& title) {
  const auto trouble = [title] {
    QWidget* window = screen::NewestWindow(title);
    return window == nullptr ? "there is no window " + Called(title) : NotInFront(*window);
  };
  return {{trouble, [] {}}};
}

}  // namespace tour
