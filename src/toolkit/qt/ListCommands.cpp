#include "toolkit/qt/ListCommands.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include "toolkit/qt/ListExport.h"

namespace toolkit::qt {
namespace {

/// Takes the key that copies for the list before any menu sees it, as Qt's fields do, whether or not there is a menu
/// with the same key.
class CopyKey final : public QObject {
 public:
  CopyKey(QWidget& view, const Listbox& list) : QObject(&view), list_(list) { view.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isPress && event->type() != QEvent::ShortcutOverride) return false;
    if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) return false;
    if (isPress) CopySelectedRow(list_);
    event->accept();
    return true;
  }

 private:
  const Listbox& list_;
};

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

void AddListCommands(QWidget& view, const Listbox& list, const std::function<void()>& find) {
  new CopyKey(view, list);
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
  // Without a menu bar above it, the entry only shows the key.
  QAction* copy =
      menu->addAction(QStringLiteral("Copy"), QKeySequence::Copy, &view, [&list] { CopySelectedRow(list); });
  copy->setObjectName("listCopy");
  copy->setEnabled(list.ListIndex() >= 0);
  menu->addActions(view.actions());
  menu->popup(position);
}

}  // namespace toolkit::qt
