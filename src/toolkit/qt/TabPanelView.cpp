#include "toolkit/qt/TabPanelView.h"

#include <QTabBar>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {

TabPanelView::TabPanelView(TabPanel& tabs, QWidget& parent) : ViewOf(tabs, parent) {
  for (const std::string& caption : tabs.Panels()) addTab(new QWidget(this), ToQt(caption));
  TabPanelView::Refresh();
  connect(this, &QTabWidget::currentChanged, this,
          [this](int index) { Platform::Current().Dispatch([&] { Model().Select(index + 1); }); });
}

void TabPanelView::Refresh() {
  ShowCommonProperties(*this, Model());
  tabBar()->setAccessibleName(accessibleName());
  setCurrentIndex(Model().Value() - 1);
}

}  // namespace toolkit::qt
