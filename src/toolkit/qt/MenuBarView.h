#pragma once

#include <QMenuBar>
#include <QPointer>

#include "toolkit/MenuBar.h"
#include "toolkit/qt/EditTarget.h"

namespace toolkit::qt {

/// The menus of one window. Several views may show the same bar.
class MenuBarView final : public QMenuBar {
 public:
  MenuBarView(const MenuBar& bar, QWidget& parent);

 private:
  void AddItem(QMenu& menu, const MenuItem& item);
  void FollowKeyboard(QWidget* widget);
  /// What the editing entries act on, nullptr if there is nothing.
  [[nodiscard]] EditTarget* Target() const { return dynamic_cast<EditTarget*>(target_.data()); }
  [[nodiscard]] bool IsEnabled(StandardAction action) const;
  void Choose(StandardAction action) const;

  // The widget of the window that has the keyboard, or had it before a menu.
  QPointer<QWidget> target_;
};

}  // namespace toolkit::qt
