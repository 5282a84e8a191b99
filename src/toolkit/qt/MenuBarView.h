#pragma once

#include <QMenuBar>

#include "toolkit/MenuBar.h"

namespace toolkit::qt {

/// The menus of one window. Several views may show the same bar.
class MenuBarView final : public QMenuBar {
 public:
  MenuBarView(const MenuBar& bar, QWidget& parent);

 private:
  void AddItem(QMenu& menu, const MenuItem& item);
};

}  // namespace toolkit::qt
