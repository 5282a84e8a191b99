#include "toolkit/qt/ListCommands.h"

#include <QAction>
#include <QMenu>

#include "toolkit/qt/ListExport.h"

namespace toolkit::qt {
namespace {

constexpr const char* copyName = "listCopy";

void AddCommand(QWidget& view, const char* name, const QString& caption, const QKeySequence& keys,
                const std::function<void()>& command) {
  auto* action = new QAction(caption, &view);
  action->setObjectName(name);
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  QObject::connect(action, &QAction::triggered, &view, command);
  view.addAction(action);
}

}  // namespace

void AddListCommands(QWidget& view, const Listbox& list, const std::function<void()>& find) {
  AddCommand(view, copyName, QStringLiteral("Copy"), QKeySequence::Copy, [&list] { CopySelectedRow(list); });
  AddCommand(view, "listCopyAll", QStringLiteral("Copy All"), QKeySequence("Ctrl+Shift+C"),
             [&list] { CopyAllRows(list); });
  AddCommand(view, "listSaveAs", QStringLiteral("Save As…"), QKeySequence::Save,
             [&view, &list] { AskWhereToSave(list, view); });
  AddCommand(view, "listFind", QStringLiteral("Find…"), QKeySequence::Find, find);
}

void PopUpListCommands(QWidget& view, const Listbox& list, const QPoint& position) {
  auto* menu = new QMenu(&view);
  menu->setObjectName("listMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions(view.actions());
  auto* copy = view.findChild<QAction*>(copyName);
  copy->setEnabled(list.ListIndex() >= 0);
  // The key works again once the menu is gone.
  QObject::connect(menu, &QMenu::aboutToHide, copy, [copy] { copy->setEnabled(true); });
  menu->popup(position);
}

}  // namespace toolkit::qt
