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
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QFont TextFont() const;
  [[nodiscard]] QStringList LinesWithin(QSize size, const QFont& textFont) const;
};

}  // namespace toolkit::qt
