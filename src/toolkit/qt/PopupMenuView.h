#pragma once

#include <QComboBox>

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

  void Follow();
  void UserSelects(int row);

  Rows* rows_;
  unsigned shownGeneration_ = 0;
  bool followPending_ = false;
};

}  // namespace toolkit::qt
