#pragma once

#include <QTabWidget>

#include "toolkit/TabPanel.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

/// The tabs and the frame below them. The controls of the panels are not its children: they are placed over the frame,
/// as children of the window.
class TabPanelView final : public ViewOf<QTabWidget, TabPanel> {
 public:
  TabPanelView(TabPanel& tabs, QWidget& parent);
  void Refresh() override;
};

}  // namespace toolkit::qt
