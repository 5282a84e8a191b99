#pragma once

#include <QMenuBar>
#include <QPointer>

#include "toolkit/MenuBar.h"
#include "toolkit/qt/EditTarget.h"

namespace toolkit::qt {

/// The menus of one window. Several views may show the same MenuBar.
class MenuBarView final : public QMenuBar {
 public:
  MenuBarView(const MenuBar& bar, QWidget& parent);

 private:
  void AddItem(QMenu& menu, const MenuItem& item);
  void FollowKeyboard(QWidget* widget);
  /// The target of the editing items, nullptr if there is none.
  [[nodiscard]] EditTarget* Target() const { return dynamic_cast<EditTarget*>(target_.data()); }
  [[nodiscard]] bool IsEnabled(StandardAction action) const;
  void Choose(StandardAction action) const;

  // The widget of the window that has the focus, or had it before a menu was opened.
  QPointer<QWidget> target_;
};

}  // namespace toolkit::qt
