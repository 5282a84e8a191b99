#include "toolkit/qt/MenuBarView.h"

#include <QApplication>

#include "toolkit/Application.h"
#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/StandardEditing.h"

namespace toolkit::qt {
namespace {

QKeySequence KeysOf(const MenuItem& item) {
  return QKeySequence(ToQt(item.Shortcut).replace(QLatin1String("Cmd+"), QLatin1String("Ctrl+")));
}

void Choose(StandardAction action) {
  if (action == StandardAction::Quit) {
    Platform::Current().Dispatch([] { toolkit::Quit(); });
  } else {
    Edit(action, QApplication::focusWidget());
  }
}

bool IsEnabled(StandardAction action) {
  return action == StandardAction::Quit || CanEdit(action, QApplication::focusWidget());
}

}  // namespace

MenuBarView::MenuBarView(const MenuBar& bar, QWidget& parent) : QMenuBar(&parent) {
  for (const MenuItem& menu : bar.Menus()) {
    QMenu* shown = addMenu(ToQt(menu.Caption));
    shown->setObjectName(ToQt(menu.Name));
    for (const MenuItem& item : menu.Items) AddItem(*shown, item);
  }
}

void MenuBarView::AddItem(QMenu& menu, const MenuItem& item) {
  if (item.IsSeparator()) {
    menu.addSeparator()->setObjectName(ToQt(item.Name));
    return;
  }
  const StandardAction action = item.Action;
  QAction* entry = menu.addAction(ToQt(item.Caption), this, [action] { Choose(action); });
  entry->setObjectName(ToQt(item.Name));
  entry->setShortcut(KeysOf(item));
  // While the menu is closed its entries stay enabled, so that their keys work.
  connect(&menu, &QMenu::aboutToShow, entry, [entry, action] { entry->setEnabled(IsEnabled(action)); });
  connect(
      &menu, &QMenu::aboutToHide, entry, [entry] { entry->setEnabled(true); }, Qt::QueuedConnection);
}

}  // namespace toolkit::qt
