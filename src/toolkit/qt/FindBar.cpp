#include "toolkit/qt/FindBar.h"

#include <algorithm>
#include <chrono>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>

#include "toolkit/ListSearch.h"
#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {
namespace {

constexpr std::chrono::milliseconds pauseInTyping(150);

}  // namespace

FindBar::FindBar(Listbox& list, ListTable& table) : list_(list), table_(table) {
  setObjectName("findBar");
  setAutoFillBackground(true);
  field_.setObjectName("findText");
  field_.setPlaceholderText(QStringLiteral("Find"));
  field_.setAccessibleName(QStringLiteral("Find"));
  count_.setObjectName("findCount");
  count_.setTextFormat(Qt::PlainText);
  count_.setMinimumWidth(count_.fontMetrics().horizontalAdvance(QStringLiteral("1000000 of 1000000 rows")));

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(4, 2, 4, 2);
  layout->addWidget(&field_, 1);
  layout->addWidget(MakeButton("findPrevious", QStringLiteral("Previous"), Direction::Previous));
  layout->addWidget(MakeButton("findNext", QStringLiteral("Next"), Direction::Next));
  layout->addWidget(&count_);
  pause_.setSingleShot(true);
  pause_.setInterval(pauseInTyping);
  connect(&pause_, &QTimer::timeout, this, [this] {
    Platform::Current().WhenFree([this, bar = QPointer(this)] {
      if (bar) SearchFromHere();
    });
  });
  connect(&field_, &QLineEdit::textChanged, &pause_, qOverload<>(&QTimer::start));
  hide();
}

QToolButton* FindBar::MakeButton(const QString& name, const QString& caption, Direction direction) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setText(caption);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, this, [this, direction] { Go(direction); });
  return button;
}

void FindBar::Open() {
  show();
  field_.setFocus();
  field_.selectAll();
  RowsChanged();
}

void FindBar::Close() {
  hide();
  table_.Mark({});
  table_.setFocus();
}

void FindBar::Again(Direction direction) { isVisible() && !field_.text().isEmpty() ? Go(direction) : Open(); }

void FindBar::RowsChanged() {
  if (isVisible()) Search();
}

// Return on a focused button presses it.
void FindBar::keyPressEvent(QKeyEvent* event) {
  const bool isBack = event->modifiers().testFlag(Qt::ShiftModifier);
  auto* button = qobject_cast<QToolButton*>(focusWidget());
  if (event->key() == Qt::Key_Escape) {
    Close();
  } else if (IsReturn(*event) && button != nullptr && button->hasFocus()) {
    button->click();
  } else if (IsReturn(*event)) {
    Go(isBack ? Direction::Previous : Direction::Next);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void FindBar::Search() {
  pause_.stop();
  matches_ = RowsContaining(list_, FromQt(field_.text()));
  table_.Mark(field_.text());
  ShowCount();
}

// Keeps the selected row if it still matches; otherwise selects the next one that does.
void FindBar::SearchFromHere() {
  Search();
  if (!std::binary_search(matches_.begin(), matches_.end(), list_.ListIndex())) Go(Direction::Next);
}

// Continues at the other end.
void FindBar::Go(Direction direction) {
  if (pause_.isActive()) Search();
  if (matches_.empty()) return;
  int row = -1;
  if (direction == Direction::Next) {
    const auto after = std::upper_bound(matches_.begin(), matches_.end(), list_.ListIndex());
    row = after == matches_.end() ? matches_.front() : *after;
  } else {
    const auto here = std::lower_bound(matches_.begin(), matches_.end(), list_.ListIndex());
    row = here == matches_.begin() ? matches_.back() : *(here - 1);
  }
  Platform::Current().Dispatch([&] { list_.Select(row); });
  table_.ShowMark(row);
  ShowCount();
}

void FindBar::ShowCount() {
  const auto here = std::lower_bound(matches_.begin(), matches_.end(), list_.ListIndex());
  const bool isOnMatch = here != matches_.end() && *here == list_.ListIndex();
  if (field_.text().isEmpty()) {
    count_.setText({});
  } else if (isOnMatch) {
    count_.setText(QStringLiteral("%1 of %2 rows").arg(here - matches_.begin() + 1).arg(matches_.size()));
  } else {
    count_.setText(matches_.empty() ? QStringLiteral("No rows") : QStringLiteral("%1 rows").arg(matches_.size()));
  }
}

}  // namespace toolkit::qt
