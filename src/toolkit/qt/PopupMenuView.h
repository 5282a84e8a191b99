#pragma once

#include <QComboBox>
#include <QLabel>

#include "toolkit/PopupMenu.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

/// A popup menu on the screen. Its rows are cut where they are longer than anybody reads, so that neither the menu nor
/// the time to open it grows with them.
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
  // Never seen: screen readers take the name from it, since the text of what is chosen stands for that of the menu.
  QLabel name_;
  unsigned shownGeneration_ = 0;
};

}  // namespace toolkit::qt
