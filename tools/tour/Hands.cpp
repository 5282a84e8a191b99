#include "tour/Hands.h"

#include <functional>
#include <utility>

#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QWindow>

#include "tour/Screen.h"

namespace tour {
namespace {

/// Where to point: a place in a part of a window.
struct Spot {
  QWidget* part = nullptr;
  QPoint place;
};
using Aim = std::function<Spot()>;

enum class Hit { Once, Twice };

QString Called(const QString& name) { return "“" + name + "”"; }

/// Asks for the keyboard, as a click on the frame of the window would; empty once the window has it.
QString NotInFront(QWidget& window) {
  if (QApplication::activeWindow() == &window) return {};
  window.raise();
  window.activateWindow();
  return "the window " + Called(window.windowTitle()) + " does not come to the front";
}

QString CannotPoint(const Spot& spot, const QString& name) {
  if (spot.part == nullptr) return "there is no " + Called(name);
  QWidget& window = *spot.part->window();
  if (!spot.part->isEnabled()) return Called(name) + " is disabled";
  if (screen::Box() != nullptr && screen::Box() != &window) return "a message box stands in front of " + Called(name);
  if (QString trouble = NotInFront(window); !window.windowFlags().testFlag(Qt::Popup) && !trouble.isEmpty()) {
    return trouble;
  }
  const QPoint place = spot.part->mapTo(&window, spot.place);
  const QWidget* hit = window.rect().contains(place) ? window.childAt(place) : nullptr;
  const bool isFree = spot.part == &window ? hit == nullptr : hit == spot.part || spot.part->isAncestorOf(hit);
  return isFree ? QString() : Called(name) + " is covered or out of sight";
}

Inputs Point(const QString& name, const Aim& aim, Qt::MouseButton button = Qt::LeftButton, Hit hit = Hit::Once) {
  const auto act = [aim, button, hit] {
    const Spot spot = aim();
    QWidget* window = spot.part->window();
    const QPoint place = spot.part->mapTo(window, spot.place);
    if (hit == Hit::Once) {
      QTest::mouseClick(window->windowHandle(), button, {}, place);
    } else {
      QTest::mouseDClick(window->windowHandle(), button, {}, place);
    }
  };
  return {{[aim, name] { return CannotPoint(aim(), name); }, act}};
}

Spot RowSpot(const QString& list, int row) {
  const auto* view = screen::FindAs<QAbstractItemView>(list);
  if (view == nullptr || row < 0 || row >= screen::RowCount(list)) return {};
  const QRect cell = view->visualRect(view->model()->index(row, 0));
  return {view->viewport(), {cell.left() + 20, cell.center().y()}};
}

Inputs PointAtRow(const QString& list, int row, Qt::MouseButton button, Hit hit) {
  return Point(
      list, [list, row] { return RowSpot(list, row); }, button, hit);
}

Spot LinkSpot(const QString& page, const QString& text) {
  auto* view = screen::FindAs<QTextBrowser>(page);
  if (view == nullptr) return {};
  QTextCursor cursor = view->document()->find(text);
  cursor.setPosition((cursor.selectionStart() + cursor.selectionEnd()) / 2);
  const QPoint place = view->cursorRect(cursor).center();
  return view->anchorAt(place).isEmpty() ? Spot() : Spot{view->viewport(), place};
}

Spot BoxButtonSpot(const QString& caption) {
  if (screen::Box() == nullptr) return {};
  for (auto* button : screen::Box()->findChildren<QPushButton*>()) {
    if (screen::TextOf(*button) == caption) return {button, button->rect().center()};
  }
  return {};
}

Spot MenuSpot(const QString& name) {
  const QWidget* front = screen::Front();
  auto* bar = front == nullptr ? nullptr : front->findChild<QMenuBar*>();
  const auto* menu = bar == nullptr ? nullptr : bar->findChild<QMenu*>(name);
  if (menu == nullptr) return {};
  return {bar, bar->actionGeometry(menu->menuAction()).center()};
}

Spot EntrySpot(const QString& name) {
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  auto* entry = menu == nullptr ? nullptr : menu->findChild<QAction*>(name);
  if (entry == nullptr) return {};
  return {menu, menu->actionGeometry(entry).center()};
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

/// Does something to the newest window with this title.
Inputs OnWindow(const QString& title, const std::function<void(QWindow&)>& act) {
  const auto newest = [title] { return screen::Windows(title).isEmpty() ? nullptr : screen::Windows(title).last(); };
  return {{[=] { return newest() == nullptr ? "there is no window " + Called(title) : QString(); },
           [=] { act(*newest()->windowHandle()); }}};
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
  return Point(caption, [tabs, caption]() -> Spot {
    const auto* panel = screen::FindAs<QTabWidget>(tabs);
    if (panel == nullptr) return {};
    for (int tab = 0; tab < panel->count(); ++tab) {
      if (panel->tabText(tab) == caption) return {panel->tabBar(), panel->tabBar()->tabRect(tab).center()};
    }
    return {};
  });
}

Inputs ClickRow(const QString& list, int row) { return PointAtRow(list, row, Qt::LeftButton, Hit::Once); }
Inputs RightClickRow(const QString& list, int row) { return PointAtRow(list, row, Qt::RightButton, Hit::Once); }
Inputs DoubleClickRow(const QString& list, int row) { return PointAtRow(list, row, Qt::LeftButton, Hit::Twice); }

Inputs ClickRow(const QString& list, const QString& row) {
  return Point(row, [list, row] { return RowSpot(list, screen::RowNamed(list, row)); });
}

Inputs ClickLink(const QString& page, const QString& text) {
  return Point(text, [page, text] { return LinkSpot(page, text); });
}

Inputs PressInBox(const QString& caption) {
  return Point(caption, [caption] { return BoxButtonSpot(caption); });
}

Inputs ClickMenu(const QString& menu) {
  return Point(menu, [menu] { return MenuSpot(menu); });
}

Inputs ChooseFromMenu(const QString& menu, const QString& entry) {
  return ClickMenu(menu) + Point(entry, [entry] { return EntrySpot(entry); });
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

Inputs TabThrough(const std::vector<QString>& names) {
  Inputs inputs;
  for (const QString& name : names) {
    const auto notThere = [name] {
      const QWidget* focus = QApplication::focusWidget();
      if (focus != nullptr && focus->objectName() == name) return CannotType();
      return "the keyboard is at " + Called(focus == nullptr ? "nothing" : focus->objectName()) + ", not at " +
             Called(name);
    };
    inputs.push_back({notThere, Key(Qt::Key_Tab).front().act});
  }
  return inputs;
}

Inputs BringToFront(const QString& title) {
  const auto trouble = [title] {
    const auto windows = screen::Windows(title);
    return windows.isEmpty() ? "there is no window " + Called(title) : NotInFront(*windows.last());
  };
  return {{trouble, [] {}}};
}

Inputs Grow(const QString& title, QSize more) {
  return OnWindow(title, [more](QWindow& window) {
    window.resize((window.size() + more).expandedTo(window.minimumSize()).boundedTo(window.maximumSize()));
  });
}

Inputs Close(const QString& title) {
  return OnWindow(title, [](QWindow& window) { window.close(); });
}

}  // namespace tour
