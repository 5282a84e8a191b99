#include "toolkit/qt/LabelView.h"

#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

Qt::Alignment ToQt(Alignment alignment) {
  switch (alignment) {
    case Alignment::Left:
      return Qt::AlignLeft;
    case Alignment::Center:
      return Qt::AlignHCenter;
    case Alignment::Right:
      return Qt::AlignRight;
  }
  return Qt::AlignLeft;
}

}  // namespace

LabelView::LabelView(Label& label, QWidget& parent) : ViewOf(label, parent) {
  setTextFormat(Qt::PlainText);
  LabelView::Refresh();
}

void LabelView::Refresh() {
  ShowCommonProperties(*this, Shown());
  setAlignment(ToQt(Shown().TextAlign()) | Qt::AlignVCenter);
  setText(qt::ToQt(Shown().Text()));
}

}  // namespace toolkit::qt
