#pragma once

#include <QComboBox>
#include <QLabel>

#include "toolkit/PopupMenu.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

/// A popup menu on the screen. Very long rows are elided, so that neither the menu nor the time to open it grows with
/// them.
class PopupMenuView final : public ViewOf<QComboBox, PopupMenu> {
 public:
  PopupMenuView(PopupMenu& menu, QWidget& parent);
  void Refresh() override;

 protected:
  void initStyleOption(QStyleOptionComboBox* option) const override;

 private:
  class Rows;

  void Follow() override;
  void UserSelects(int row);

  Rows* rows_;
  // Never visible: screen readers take the menu's name from it, since the widget's own text is that of the selected
  // row.
  QLabel name_;
  unsigned shownGeneration_ = 0;
};

}  // namespace toolkit::qt
