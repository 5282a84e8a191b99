#include "toolkit/qt/ListTable.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include <QApplication>
#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include "toolkit/Platform.h"
#include "toolkit/qt/ListExport.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {
namespace {

constexpr int rowPadding = 4;
// In a longer list, searching by the first letters is of no use, and reading all rows at each key is slow.
constexpr int mostRowsToType = 10'000;
// The number of off-screen rows that are also measured when a column is fitted to its texts.
constexpr int rowsToMeasure = 1000;

QFont FixedFont() {
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(QApplication::font().pointSizeF());
  return fixed;
}

}  // namespace

ListTable::ListTable(Listbox& list) : list_(list), model_(list) {
  setModel(&model_);
  setItemDelegate(&cells_);
  SetUpHeaders();
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  if (list_.Texts() == ListTexts::Terminal) setFont(FixedFont());
}

// The headers use the model, which is destroyed before the child widgets are.
ListTable::~ListTable() {
  following_ = true;  // the user does not clear the selection
  setModel(nullptr);
}

void ListTable::SetUpHeaders() {
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(0);
  horizontalHeader()->setTextElideMode(Qt::ElideRight);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int column, int /*before*/, int width) { KeepUsersWidth(column, width); });
}

bool ListTable::Follow() {
  following_ = true;
  setHorizontalScrollBarPolicy(list_.Scrolling() == ScrollBars::Both ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  horizontalHeader()->setVisible(list_.HasHeading());
  const bool wasEmpty = model_.rowCount() == 0;
  if (!wasEmpty) scrolled_ = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
  const bool haveRowsChanged = model_.Follow();
  if (haveRowsChanged) widestText_ = 0;
  usersWidths_.resize(static_cast<std::size_t>(list_.ColumnCount()));
  horizontalHeader()->setResizeContentsPrecision(LastColumnIsWide() ? 0 : rowsToMeasure);
  Measure();
  LayOut();
  if (wasEmpty && haveRowsChanged) {
    updateGeometries();
    verticalScrollBar()->setValue(scrolled_.y());
    updateGeometries();  // the rows on the screen now may be wider
    horizontalScrollBar()->setValue(scrolled_.x());
  }
  FollowSelection();
  viewport()->update();
  following_ = false;
  return haveRowsChanged;
}

void ListTable::FollowSelection() {
  const int row = list_.ListIndex();
  const QModelIndexList selected = selectionModel()->selectedRows();
  if (row == (selected.isEmpty() ? -1 : selected.front().row())) return;
  if (row < 0) {
    selectionModel()->clear();
  } else {
    setCurrentIndex(model_.index(row, 0));
  }
}

void ListTable::Mark(const QString& text) {
  cells_.Mark(text);
  viewport()->update();
}

void ListTable::ShowMark(int row) {
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  for (int column = 0; column < model_.columnCount(); ++column) {
    const QRect mark = cells_.MarkIn(model_.index(row, column).data().toString(), option);
    if (mark.isEmpty()) continue;
    const int left = columnViewportPosition(column) + mark.left();
    const int beyond = std::max(left + mark.width() - viewport()->width(), 0);
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + std::min(left, beyond));
    return;
  }
}

/// Whether the last column is as wide as its texts, so that the list scrolls horizontally.
bool ListTable::LastColumnIsWide() const {
  if (list_.Scrolling() != ScrollBars::Both) return false;
  const auto widths = LayOutColumns(list_.ColumnWidths(), usersWidths_, 0);
  return !widths.empty() && widths.back() == 0;
}

/// Measures the texts on the screen. In a hidden table, Qt would measure every row.
void ListTable::Measure() {
  if (isVisible() && LastColumnIsWide())
    widestText_ = std::max(widestText_, sizeHintForColumn(model_.columnCount() - 1));
}

void ListTable::LayOut() {
  if (usersWidths_.empty() || std::exchange(layingOut_, true)) return;
  const int height = fontMetrics().height() + rowPadding;
  if (verticalHeader()->defaultSectionSize() != height) verticalHeader()->setDefaultSectionSize(height);
  const int available = viewport()->width();
  const int last = model_.columnCount() - 1;
  const double scale = QtWindow::ScaleOf(*this);
  auto widths = LayOutColumns(list_.ColumnWidths(), usersWidths_, qRound(available / scale));
  for (int& width : widths) width = qRound(width * scale);
  widths.back() = std::max(widths.back(), widestText_);
  // The last column extends to the list's edge, so that its heading does.
  widths.back() += std::max(available - std::accumulate(widths.begin(), widths.end(), 0), 0);
  for (int column = 0; column <= last; ++column) setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
  layingOut_ = false;
}

// Deferred: the header may still be processing the user's drag.
void ListTable::KeepUsersWidth(int column, int width) {
  if (layingOut_ || following_) return;
  usersWidths_.at(static_cast<std::size_t>(column)) = qRound(width / QtWindow::ScaleOf(*this));
  QMetaObject::invokeMethod(this, &ListTable::LayOut, Qt::QueuedConnection);
}

bool ListTable::CanEdit(StandardAction action) const {
  return action == StandardAction::Copy && list_.ListIndex() >= 0;
}

void ListTable::Edit(StandardAction /*action*/) { CopySelectedRow(list_); }

// The copy shortcut is handled by the list, even if a menu has the same one.
bool ListTable::event(QEvent* event) {
  const bool isCopy =
      event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy);
  if (isCopy) event->accept();
  return isCopy || QTableView::event(event);
}

void ListTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Follow();
}

void ListTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (event->size().height() > event->oldSize().height()) Measure();
  LayOut();
}

void ListTable::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  Measure();
  LayOut();
}

void ListTable::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (dy == 0 || !LastColumnIsWide()) return;
  Measure();
  if (widestText_ > columnWidth(model_.columnCount() - 1)) LayOut();
}

// Selecting another row keeps the horizontal scroll position.
void ListTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  const int left = horizontalScrollBar()->value();
  QTableView::scrollTo(index, hint);
  horizontalScrollBar()->setValue(left);
}

void ListTable::keyboardSearch(const QString& typed) {
  if (model_.rowCount() > mostRowsToType) return;
  // keyboardSearch() compares the current column, which must be the first.
  if (currentIndex().column() > 0) {
    selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
  }
  QTableView::keyboardSearch(typed);
}

void ListTable::keyPressEvent(QKeyEvent* event) {
  if (IsReturn(*event) && list_.ListIndex() >= 0) {
    // Auto-repeat is ignored.
    if (!event->isAutoRepeat()) Platform::Current().Dispatch([this] { list_.Activate(); });
  } else if (event->matches(QKeySequence::Copy)) {
    CopySelectedRow(list_);
  } else {
    QTableView::keyPressEvent(event);
  }
}

QModelIndex ListTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  switch (action) {
    case MoveLeft:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
      return currentIndex();
    case MoveRight:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
      return currentIndex();
    case MoveHome:
      return model_.index(0, 0);
    case MoveEnd:
      return model_.index(model_.rowCount() - 1, 0);
    default:
      return QTableView::moveCursor(action, modifiers);
  }
}

void ListTable::mousePressEvent(QMouseEvent* event) {
  QTableView::mousePressEvent(event);
  if (!indexAt(event->position().toPoint()).isValid()) selectionModel()->clear();
}

void ListTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) Platform::Current().Dispatch([this] { list_.Activate(); });
}

void ListTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (following_) return;
  const QModelIndexList rows = selectionModel()->selectedRows();
  // An assistive technology selects a row without making it current.
  if (!rows.isEmpty() && rows.front().row() != currentIndex().row()) {
    selectionModel()->setCurrentIndex(rows.front(), QItemSelectionModel::NoUpdate);
  }
  Platform::Current().Dispatch([&] { list_.Select(rows.isEmpty() ? -1 : rows.front().row()); });
}

// Qt makes the first row current without selecting it, so that the Down key would skip it.
void ListTable::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (list_.ListIndex() < 0) selectionModel()->clear();
}

}  // namespace toolkit::qt
