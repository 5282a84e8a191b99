#include "toolkit/qt/ListCommands.h"

#include <functional>

#include <QAction>
#include <QMenu>

#include "toolkit/qt/ListExport.h"

namespace toolkit::qt {
namespace {

void AddCommand(QWidget& view, const char* name, const QString& caption, const QKeySequence& keys,
                const std::function<void()>& command) {
  auto* action = new QAction(caption, &view);
  action->setObjectName(name);
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(action, &QAction::triggered, &view, command);
  view.addAction(action);
}

}  // namespace

void AddListCommands(QWidget& view, const Listbox& list, FindBar& find) {
  AddCommand(view, "listCopyAll", QStringLiteral("Copy All"), QKeySequence("Ctrl+Shift+C"),
             [&list] { CopyAllRows(list); });
  AddCommand(view, "listSaveAs", QStringLiteral("Save As…"), QKeySequence::Save,
             [&view, &list] { AskWhereToSave(list, view); });
  AddCommand(view, "listFind", QStringLiteral("Find…"), QKeySequence::Find, [&find] { find.Open(); });
  AddCommand(view, "listFindNext", QStringLiteral("Find Next"), QKeySequence("F3"),
             [&find] { find.Again(FindBar::Direction::Next); });
  AddCommand(view, "listFindPrevious", QStringLiteral("Find Previous"), QKeySequence("Shift+F3"),
             [&find] { find.Again(FindBar::Direction::Previous); });
}

void PopUpListCommands(QWidget& view, const Listbox& list, const QPoint& position) {
  auto* menu = new QMenu(&view);
  menu->setObjectName("listMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  // The shortcut is only displayed: ListTable handles the key.
  QAction* copy =
      menu->addAction(QStringLiteral("Copy"), QKeySequence::Copy, &view, [&list] { CopySelectedRow(list); });
  copy->setObjectName("listCopy");
  copy->setEnabled(list.ListIndex() >= 0);
  menu->addActions(view.actions());
  menu->popup(position);
}

}  // namespace toolkit::qt
