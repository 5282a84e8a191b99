#pragma once

#include <QLabel>

#include "toolkit/Label.h"
#include "toolkit/qt/ControlViews.h"

namespace toolkit::qt {

/// A label on the screen. It elides and wraps its text itself; QLabel only provides the text to assistive technologies.
class LabelView final : public ViewOf<QLabel, Label> {
 public:
  LabelView(Label& label, QWidget& parent);
  void Refresh() override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QFont TextFont() const;
  /// The area of the text, and the lines that fit into it; the last one is elided if more follow.
  [[nodiscard]] QRect TextPlace() const;
  [[nodiscard]] QStringList ShownLines() const;
};

}  // namespace toolkit::qt
