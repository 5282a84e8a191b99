#pragma once

#include <QAccessibleWidget>
#include <QTextBrowser>

namespace toolkit::qt {

/// Makes a page accessible as a document, where Qt describes it as a label. Offsets count characters from 0.
class AccessiblePage final : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit AccessiblePage(QTextBrowser& page) : QAccessibleWidget(&page, QAccessible::Document), page_(page) {}

  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  [[nodiscard]] QString text(QAccessible::Text kind) const override { return QAccessibleWidget::text(kind); }
  [[nodiscard]] QString text(int startOffset, int endOffset) const override;
  [[nodiscard]] int characterCount() const override { return page_.document()->characterCount() - 1; }
  [[nodiscard]] int cursorPosition() const override { return page_.textCursor().position(); }
  void setCursorPosition(int position) override { Select(position, position); }

  [[nodiscard]] int selectionCount() const override { return page_.textCursor().hasSelection() ? 1 : 0; }
  void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
  void addSelection(int startOffset, int endOffset) override { Select(startOffset, endOffset); }
  void setSelection(int /*selectionIndex*/, int startOffset, int endOffset) override { Select(startOffset, endOffset); }
  void removeSelection(int /*selectionIndex*/) override { Select(cursorPosition(), cursorPosition()); }

  [[nodiscard]] QRect characterRect(int offset) const override;
  [[nodiscard]] int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int startIndex, int endIndex) override;
  [[nodiscard]] QString attributes(int offset, int* startOffset, int* endOffset) const override;

 private:
  [[nodiscard]] QTextCursor CursorOver(int start, int end) const;
  void Select(int start, int end) { page_.setTextCursor(CursorOver(start, end)); }

  QTextBrowser& page_;
};

}  // namespace toolkit::qt
