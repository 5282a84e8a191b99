#pragma once

#include <QLabel>

#include "toolkit/Label.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

/// A label on the screen. Of QLabel only the text and what assistive programs see of it are used: cutting, wrapping and
/// the ground behind the text are done here.
class LabelView final : public ViewOf<QLabel, Label> {
 public:
  LabelView(Label& label, QWidget& parent);
  void Refresh() override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QFont TextFont() const;
  /// Where the text goes, and the lines of it that there is room for; the last one ends in an ellipsis if it is cut.
  [[nodiscard]] QRect TextPlace() const;
  [[nodiscard]] QStringList ShownLines() const;
};

}  // namespace toolkit::qt
