#include "toolkit/qt/AccessiblePage.h"

#include <algorithm>

#include <QScrollBar>
#include <QTextCursor>

namespace toolkit::qt {

QAccessible::State AccessiblePage::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.multiLine = true;
  state.readOnly = true;
  state.selectableText = true;
  return state;
}

void* AccessiblePage::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                            : QAccessibleWidget::interface_cast(type);
}

QTextCursor AccessiblePage::CursorOver(int start, int end) const {
  QTextCursor cursor(page_.document());
  cursor.setPosition(std::clamp(start, 0, characterCount()));
  cursor.setPosition(std::clamp(end, 0, characterCount()), QTextCursor::KeepAnchor);
  return cursor;
}

QString AccessiblePage::text(int startOffset, int endOffset) const {
  return CursorOver(startOffset, endOffset).selectedText().replace(QChar::ParagraphSeparator, '\n');
}

void AccessiblePage::selection(int selectionIndex, int* startOffset, int* endOffset) const {
  const bool isSelected = selectionIndex == 0 && selectionCount() == 1;
  *startOffset = isSelected ? page_.textCursor().selectionStart() : 0;
  *endOffset = isSelected ? page_.textCursor().selectionEnd() : 0;
}

QRect AccessiblePage::characterRect(int offset) const {
  const QRect place = page_.cursorRect(CursorOver(offset, offset));
  const QRect next = page_.cursorRect(CursorOver(offset + 1, offset + 1));
  const int width = next.top() == place.top() ? next.left() - place.left() : place.width();
  return {page_.viewport()->mapToGlobal(place.topLeft()), QSize(width, place.height())};
}

int AccessiblePage::offsetAtPoint(const QPoint& point) const {
  return page_.cursorForPosition(page_.viewport()->mapFromGlobal(point)).position();
}

void AccessiblePage::scrollToSubstring(int startIndex, int /*endIndex*/) {
  QScrollBar& bar = *page_.verticalScrollBar();
  bar.setValue(bar.value() + page_.cursorRect(CursorOver(startIndex, startIndex)).top());
}

// The text matters, its fonts do not.
QString AccessiblePage::attributes(int /*offset*/, int* startOffset, int* endOffset) const {
  *startOffset = 0;
  *endOffset = characterCount();
  return {};
}

}  // namespace toolkit::qt
