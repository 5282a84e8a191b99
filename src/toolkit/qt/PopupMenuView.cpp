#include "toolkit/qt/PopupMenuView.h"

#include <utility>

#include <QAbstractItemView>

#include "toolkit/Platform.h"
#include "toolkit/qt/DisplayText.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t mostBytes = 2000;
constexpr int widestRow = 320;

QString RowText(std::string_view text, const QFontMetrics& font) {
  return font.elidedText(DisplayText(FirstCharacters(text, mostBytes)), Qt::ElideRight, widestRow);
}

}  // namespace

PopupMenuView::PopupMenuView(PopupMenu& menu, QWidget& parent) : ViewOf(menu, parent), name_(&parent) {
  name_.setVisible(false);
  name_.setBuddy(this);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  connect(this, &QComboBox::activated, this, [this](int row) { UserSelects(row); });
  Follow();
}

// The rows follow once, when the handler that fills the menu is done.
void PopupMenuView::Refresh() {
  ShowCommonProperties(*this, Shown());
  name_.setText(accessibleName());
  if (shownGeneration_ == Shown().Generation()) {
    setCurrentIndex(Shown().ListIndex());
  } else if (!std::exchange(followPending_, true)) {
    QMetaObject::invokeMethod(
        this, [this] { Follow(); }, Qt::QueuedConnection);
  }
}

void PopupMenuView::Follow() {
  followPending_ = false;
  hidePopup();
  clear();
  QStringList rows;
  for (int row = 0; row < Shown().ListCount(); ++row) rows.append(RowText(Shown().Text(row), fontMetrics()));
  addItems(rows);
  shownGeneration_ = Shown().Generation();
  Refresh();
}

// A row that was chosen among rows that are no more means nothing.
void PopupMenuView::UserSelects(int row) {
  if (shownGeneration_ == Shown().Generation()) Platform::Current().Dispatch([&] { Shown().Select(row); });
  Refresh();
}

void PopupMenuView::initStyleOption(QStyleOptionComboBox* option) const {
  QComboBox::initStyleOption(option);
  const QRect field = style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
  option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight, field.width() - 2);
}

}  // namespace toolkit::qt
