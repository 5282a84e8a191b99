#include "toolkit/qt/PopupMenuView.h"

#include <utility>

#include <QAbstractListModel>
#include <QListView>

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

/// Provides rows on demand, so that only visible ones take time.
class PopupMenuView::Rows final : public QAbstractListModel {
 public:
  explicit Rows(PopupMenuView& view) : QAbstractListModel(&view), view_(view) {}

  void Renew() {
    beginResetModel();
    count_ = view_.Model().ListCount();
    endResetModel();
  }
  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const bool isThere = index.isValid() && index.row() < view_.Model().ListCount();
    if (role != Qt::DisplayRole || !isThere) return {};
    return RowText(view_.Model().Text(index.row()), view_.fontMetrics());
  }

 private:
  PopupMenuView& view_;
  int count_ = 0;
};

PopupMenuView::PopupMenuView(PopupMenu& menu, QWidget& parent)
    : ViewOf(menu, parent), rows_(new Rows(*this)), name_(&parent) {
  name_.setVisible(false);
  name_.setBuddy(this);
  setModel(rows_);
  if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  connect(this, &QComboBox::activated, this, [this](int row) { UserSelects(row); });
  PopupMenuView::Follow();
}

// The rows are updated once, after the handler that fills the menu.
void PopupMenuView::Refresh() {
  ShowCommonProperties(*this, Model());
  name_.setText(accessibleName());
  if (shownGeneration_ == Model().Generation()) {
    setCurrentIndex(Model().ListIndex());
  } else {
    FollowLater();
  }
}

void PopupMenuView::Follow() {
  hidePopup();
  rows_->Renew();
  shownGeneration_ = Model().Generation();
  Refresh();
}

// A selection among outdated rows is ignored.
void PopupMenuView::UserSelects(int row) {
  if (shownGeneration_ == Model().Generation()) Platform::Current().Dispatch([&] { Model().Select(row); });
  Refresh();
}

void PopupMenuView::initStyleOption(QStyleOptionComboBox* option) const {
  QComboBox::initStyleOption(option);
  const QRect field = style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
  option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight, field.width() - 2);
}

}  // namespace toolkit::qt
