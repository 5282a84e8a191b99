#include "toolkit/qt/ListboxView.h"

#include <utility>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "toolkit/qt/ListCommands.h"

namespace toolkit::qt {

ListboxView::ListboxView(Listbox& list, QWidget& parent) : ViewOf(list, parent), table_(list), findBar_(list, table_) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(&table_);
  layout->addWidget(&findBar_);
  setFocusProxy(&table_);
  AddListCommands(*this, list, findBar_);
  ListboxView::Follow();
}

void ListboxView::contextMenuEvent(QContextMenuEvent* event) { PopUpListCommands(*this, Model(), event->globalPos()); }

void ListboxView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && findBar_.isVisible()) {
    findBar_.Close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

// A list notifies its view of every added row; the screen is updated once, after the handler that fills the list.
void ListboxView::Refresh() { FollowLater(); }

void ListboxView::Follow() {
  setEnabled(Model().Enabled());
  setVisible(Model().IsOnScreen());
  ShowCommonProperties(table_, Model());
  if (table_.Follow()) findBar_.RowsChanged();
}

}  // namespace toolkit::qt
