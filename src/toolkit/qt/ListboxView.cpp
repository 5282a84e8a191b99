#include "toolkit/qt/ListboxView.h"

#include <algorithm>
#include <utility>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>

#include "toolkit/Platform.h"
#include "toolkit/qt/CellPainter.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/ListCommands.h"
#include "toolkit/qt/ListExport.h"

namespace toolkit::qt {
namespace {

constexpr int rowPadding = 4;
constexpr std::size_t longestToolTip = 2000;

}  // namespace

ListboxView::ListboxView(Listbox& list, QWidget& parent)
    : ViewOf(list, parent), model_(list), header_(new QHeaderView(Qt::Horizontal, this)), findBar_(list, *this) {
  setModel(&model_);
  header_->setModel(&model_);
  header_->setSectionResizeMode(QHeaderView::Fixed);
  header_->setSectionsClickable(false);
  header_->setHighlightSections(false);
  header_->setMinimumSectionSize(0);
  header_->setFocusPolicy(Qt::NoFocus);
  header_->setTextElideMode(Qt::ElideRight);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  findBar_.installEventFilter(this);
  AddListCommands(*this, Shown(), [this] { findBar_.Open(); });
  Follow();
}

// The header reads the model, which goes before the children do.
ListboxView::~ListboxView() {
  following_ = true;  // it is not the user who takes the selection away
  delete header_;
  setModel(nullptr);
}

// A list that is being filled tells of every cell; the screen follows once, when the handler that fills it is done.
void ListboxView::Refresh() {
  if (std::exchange(followPending_, true)) return;
  QTimer::singleShot(0, this, [this] { Follow(); });
}

void ListboxView::Follow() {
  followPending_ = false;
  following_ = true;
  ShowCommonProperties(*this, Shown());
  setHorizontalScrollBarPolicy(Shown().Scrolling() == ScrollBars::Both ? Qt::ScrollBarAsNeeded
                                                                       : Qt::ScrollBarAlwaysOff);
  if (laidOutGeneration_ != Shown().Generation()) widestText_ = 0;
  laidOutGeneration_ = Shown().Generation();
  if (model_.Follow()) findBar_.RowsChanged();
  header_->setVisible(Shown().HasHeading());
  if (LastColumnIsWide()) {
    const auto longest = Shown().Rows().LongestIn(static_cast<std::size_t>(Shown().ColumnCount() - 1));
    const auto text = Shown().Cell(static_cast<int>(longest.row), Shown().ColumnCount() - 1);
    widestText_ = std::max(widestText_, WideTextPainter(fontMetrics()).ScrollWidth(text));
  }
  LayOut();
  FollowSelection();
  following_ = false;
}

void ListboxView::FollowSelection() {
  const int row = Shown().ListIndex();
  const QModelIndexList selected = selectionModel()->selectedRows();
  if (row == (selected.isEmpty() ? -1 : selected.front().row())) return;
  if (row < 0) {
    selectionModel()->clear();
  } else {
    setCurrentIndex(model_.index(row, 0));
  }
}

void ListboxView::LayOut() {
  updateGeometries();
  viewport()->update();
  header_->viewport()->update();
}

void ListboxView::doItemsLayout() { LayOut(); }

void ListboxView::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Refresh();
}

bool ListboxView::LastColumnIsWide() const {
  if (Shown().Scrolling() != ScrollBars::Both) return false;
  const auto widths = LayOutColumns(Shown().ColumnWidths(), Shown().ColumnCount(), 0);
  return !widths.empty() && widths.back() == 0;
}

int ListboxView::horizontalOffset() const { return horizontalScrollBar()->value(); }

int ListboxView::verticalOffset() const { return verticalScrollBar()->value(); }

bool ListboxView::isIndexHidden(const QModelIndex& /*index*/) const { return false; }

QModelIndex ListboxView::indexAt(const QPoint& point) const {
  const int row = geometry_.RowAt(point.y());
  return row < 0 ? QModelIndex() : model_.index(row, geometry_.ColumnAt(point.x()));
}

QRect ListboxView::visualRect(const QModelIndex& index) const {
  return index.isValid() ? geometry_.CellAt(index.row(), index.column()) : QRect();
}

void ListboxView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  if (!index.isValid()) return;
  const int top = index.row() * geometry_.RowHeight;
  const int page = viewport()->height();
  int offset = verticalOffset();
  if (hint == PositionAtCenter) {
    offset = top - (page - geometry_.RowHeight) / 2;
  } else if (hint == PositionAtTop || top < offset) {
    offset = top;
  } else if (hint == PositionAtBottom || top + geometry_.RowHeight > offset + page) {
    offset = top + geometry_.RowHeight - page;
  }
  verticalScrollBar()->setValue(offset);
}

void ListboxView::updateGeometries() {
  const int headingHeight = Shown().HasHeading() ? header_->sizeHint().height() : 0;
  const int barHeight = findBar_.isVisibleTo(this) ? findBar_.sizeHint().height() : 0;
  setViewportMargins(0, headingHeight, 0, barHeight);
  LayOutRows();
  // The horizontal scroll bar, if it has just appeared, has made the viewport lower.
  const QRect area = viewport()->geometry();
  verticalScrollBar()->setPageStep(area.height());
  verticalScrollBar()->setSingleStep(geometry_.RowHeight);
  verticalScrollBar()->setRange(0, std::max(geometry_.ContentHeight() - area.height(), 0));
  header_->setGeometry(area.left(), area.top() - headingHeight, area.width(), headingHeight);
  findBar_.setGeometry(area.left(), area.bottom() + 1, area.width(), barHeight);
  FollowScrollBars();
  QAbstractItemView::updateGeometries();  // NOLINT(bugprone-parent-virtual-call): QListView's is what this replaces
}

void ListboxView::LayOutRows() {
  const int available = viewport()->width();
  geometry_.RowHeight = fontMetrics().height() + rowPadding;
  geometry_.RowCount = model_.rowCount();
  geometry_.ColumnWidths = LayOutColumns(Shown().ColumnWidths(), Shown().ColumnCount(), available);
  if (LastColumnIsWide()) geometry_.ColumnWidths.back() = std::max(geometry_.ColumnWidths.back(), widestText_);
  // The last heading goes on to the list's edge, so that the strip has no end before it.
  int left = 0;
  for (int column = 0; column < header_->count(); ++column) {
    const int width = geometry_.ColumnWidths[static_cast<std::size_t>(column)];
    const bool isLast = column + 1 == header_->count();
    header_->resizeSection(column, isLast ? std::max(width, available - left) : width);
    left += width;
  }
  horizontalScrollBar()->setPageStep(available);
  horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * 8);
  horizontalScrollBar()->setRange(0, std::max(geometry_.ContentWidth() - available, 0));
}

void ListboxView::scrollContentsBy(int /*dx*/, int /*dy*/) {
  FollowScrollBars();
  viewport()->update();
}

void ListboxView::FollowScrollBars() {
  geometry_.Offset = {horizontalOffset(), verticalOffset()};
  header_->setOffset(horizontalOffset());
}

void ListboxView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.setFont(font());
  const int widestBefore = widestText_;
  const int first = std::max((event->rect().top() + verticalOffset()) / geometry_.RowHeight, 0);
  for (int row = first; row < model_.rowCount(); ++row) {
    const int top = row * geometry_.RowHeight - verticalOffset();
    if (top > event->rect().bottom()) break;
    PaintRow(painter, row, top);
  }
  if (widestText_ > widestBefore) {
    QTimer::singleShot(0, this, [this] { updateGeometries(); });
  }
}

void ListboxView::PaintRow(QPainter& painter, int row, int top) {
  const bool isSelected = row == Shown().ListIndex();
  const auto group = !isEnabled() ? QPalette::Disabled : hasFocus() ? QPalette::Active : QPalette::Inactive;
  const QRect line(0, top, viewport()->width(), geometry_.RowHeight);
  if (isSelected) painter.fillRect(line, palette().brush(group, QPalette::Highlight));
  painter.setPen(palette().color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));

  for (int column = 0; column < model_.columnCount(); ++column) {
    const QRect cell = geometry_.CellAt(row, column);
    const QRect visible = cell & line;
    if (visible.isEmpty()) continue;
    painter.setClipRect(visible);
    const std::string_view text = Shown().Cell(row, column);
    if (column + 1 == model_.columnCount() && LastColumnIsWide()) {
      const QRect frame(std::max(cell.left(), 0), cell.top(), visible.width(), cell.height());
      const int width = WideTextPainter(fontMetrics()).Paint(painter, frame, std::max(-cell.left(), 0), text);
      widestText_ = std::max(widestText_, width);
    } else {
      PaintElided(painter, cell, text);
    }
  }
  painter.setClipping(false);
}

void ListboxView::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && Shown().ListIndex() >= 0) {
    // A key that is held down counts once.
    if (!event->isAutoRepeat()) Platform::Current().Dispatch([this] { Shown().Activate(); });
  } else {
    QListView::keyPressEvent(event);
  }
}

void ListboxView::contextMenuEvent(QContextMenuEvent* event) { PopUpListCommands(*this, Shown(), event->globalPos()); }

bool ListboxView::CanEdit(StandardAction action) const {
  return action == StandardAction::Copy && Shown().ListIndex() >= 0;
}

void ListboxView::Edit(StandardAction /*action*/) { CopySelectedRow(Shown()); }

// The find bar came or went.
bool ListboxView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &findBar_ && (event->type() == QEvent::Show || event->type() == QEvent::Hide)) LayOut();
  return QListView::eventFilter(watched, event);
}

void ListboxView::mousePressEvent(QMouseEvent* event) {
  QListView::mousePressEvent(event);
  if (!indexAt(event->position().toPoint()).isValid()) selectionModel()->clear();
}

void ListboxView::mouseDoubleClickEvent(QMouseEvent* event) {
  QListView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) Platform::Current().Dispatch([this] { Shown().Activate(); });
}

QModelIndex ListboxView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
  const int last = model_.rowCount() - 1;
  if (last < 0) return {};
  const int page = std::max(viewport()->height() / geometry_.RowHeight - 1, 1);
  const int from = Shown().ListIndex();
  const auto step = [&](int rows) { return std::clamp(from < 0 ? 0 : from + rows, 0, last); };
  switch (action) {
    case MoveUp:
    case MovePrevious:
      return model_.index(step(-1), 0);
    case MoveDown:
    case MoveNext:
      return model_.index(step(1), 0);
    case MovePageUp:
      return model_.index(step(-page), 0);
    case MovePageDown:
      return model_.index(step(page), 0);
    case MoveHome:
      return model_.index(0, 0);
    case MoveEnd:
      return model_.index(last, 0);
    case MoveLeft:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
      break;
    case MoveRight:
      horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
      break;
  }
  return currentIndex();
}

void ListboxView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  const QModelIndex index = indexAt(rect.normalized().topLeft());
  if (index.isValid()) selectionModel()->select(index, command | QItemSelectionModel::Rows);
}

void ListboxView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QAbstractItemView::selectionChanged(selected, deselected);  // NOLINT(bugprone-parent-virtual-call): as above
  viewport()->update();
  if (following_) return;
  const QModelIndexList rows = selectionModel()->selectedRows();
  UserSelects(rows.isEmpty() ? -1 : rows.front().row());
}

void ListboxView::UserSelects(int row) {
  Platform::Current().Dispatch([&] { Shown().Select(row); });
}

void ListboxView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call): as above
  if (!QAccessible::isActive() || !current.isValid()) return;
  QAccessibleEvent event(this, QAccessible::Focus);
  event.setChild(current.row() * model_.columnCount() + current.column());
  QAccessible::updateAccessibility(&event);
}

// Qt makes the first row current without selecting it, and the Down key would then pass it over.
void ListboxView::focusInEvent(QFocusEvent* event) {
  QListView::focusInEvent(event);
  if (Shown().ListIndex() < 0) selectionModel()->clear();
}

QRegion ListboxView::visualRegionForSelection(const QItemSelection& selection) const {
  QRegion region;
  for (const QItemSelectionRange& range : selection) {
    const int top = range.top() * geometry_.RowHeight - verticalOffset();
    region += QRect(0, top, viewport()->width(), range.height() * geometry_.RowHeight);
  }
  return region;
}

bool ListboxView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  if (!ShowToolTip(help->pos(), help->globalPos())) QToolTip::hideText();
  return true;
}

// Shows the whole text of a cell that had to be cut.
bool ListboxView::ShowToolTip(const QPoint& position, const QPoint& globalPosition) const {
  const QModelIndex index = indexAt(position);
  if (!index.isValid() || (index.column() + 1 == model_.columnCount() && LastColumnIsWide())) return false;
  const std::string_view text = Shown().Cell(index.row(), index.column());
  if (!WouldBeElided(fontMetrics(), visualRect(index).width(), text)) return false;
  // Escaped and put into a paragraph, the text is markup for certain, and shows as it is.
  const QString plain = DisplayText(WholeCharacters(text, 0, longestToolTip));
  QToolTip::showText(globalPosition, "<p>" + plain.toHtmlEscaped() + "</p>", viewport());
  return true;
}

}  // namespace toolkit::qt
