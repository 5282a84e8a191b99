#include "toolkit/qt/MenuBarView.h"

#include <QApplication>

#include "toolkit/Application.h"
#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

QKeySequence KeysOf(const MenuItem& item) {
  return QKeySequence(ToQt(item.Shortcut).replace(QLatin1String("Cmd+"), QLatin1String("Ctrl+")));
}

}  // namespace

MenuBarView::MenuBarView(const MenuBar& bar, QWidget& parent) : QMenuBar(&parent) {
  for (const MenuItem& menu : bar.Menus()) {
    QMenu* shown = addMenu(ToQt(menu.Caption));
    shown->setObjectName(ToQt(menu.Name));
    for (const MenuItem& item : menu.Items) AddItem(*shown, item);
  }
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowKeyboard(now); });
}

void MenuBarView::FollowKeyboard(QWidget* widget) {
  const bool isMenu = widget == this || qobject_cast<QMenu*>(widget) != nullptr;
  if (widget != nullptr && !isMenu && widget->window() == window()) target_ = widget;
}

bool MenuBarView::IsEnabled(StandardAction action) const {
  return action == StandardAction::Quit || (Target() != nullptr && Target()->CanEdit(action));
}

void MenuBarView::Choose(StandardAction action) const {
  if (!IsEnabled(action)) return;
  if (action == StandardAction::Quit) {
    Platform::Current().Dispatch([] { toolkit::Quit(); });
  } else {
    Target()->Edit(action);
  }
}

void MenuBarView::AddItem(QMenu& menu, const MenuItem& item) {
  if (item.IsSeparator()) {
    menu.addSeparator()->setObjectName(ToQt(item.Name));
    return;
  }
  const StandardAction action = item.Action;
  QAction* entry = menu.addAction(ToQt(item.Caption), this, [this, action] { Choose(action); });
  entry->setObjectName(ToQt(item.Name));
  entry->setShortcut(KeysOf(item));
  // While the menu is closed its items stay enabled, so that their shortcuts work.
  connect(&menu, &QMenu::aboutToShow, entry, [this, entry, action] { entry->setEnabled(IsEnabled(action)); });
  connect(
      &menu, &QMenu::aboutToHide, entry, [entry] { entry->setEnabled(true); }, Qt::QueuedConnection);
}

}  // namespace toolkit::qt
