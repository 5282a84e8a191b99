#pragma once

#include "toolkit/Listbox.h"
#include "toolkit/qt/ControlViews.h"
#include "toolkit/qt/FindBar.h"
#include "toolkit/qt/ListTable.h"

namespace toolkit::qt {

/// A list on the screen: its table, and below it the find bar while it is open. The table has the list's name.
class ListboxView final : public ViewOf<QWidget, Listbox> {
 public:
  ListboxView(Listbox& list, QWidget& parent);

  void Refresh() override;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Follow() override;

  ListTable table_;
  FindBar findBar_;
};

}  // namespace toolkit::qt
