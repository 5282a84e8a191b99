#pragma once

#include <vector>

#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <QWidget>

#include "toolkit/Listbox.h"
#include "toolkit/qt/EditViews.h"
#include "toolkit/qt/ListTable.h"

namespace toolkit::qt {

/// A bar below a list that searches its rows for a text and selects a row that contains it. It searches shortly after
/// the last key, so that typing stays fast in a long list.
class FindBar final : public QWidget {
 public:
  enum class Direction { Next, Previous };

  FindBar(Listbox& list, ListTable& table);

  /// Shows the bar and focuses its text field.
  void Open();
  void Close();
  /// Selects another row with the text; opens the bar if there is no text yet.
  void Again(Direction direction);
  /// The rows of the list have changed.
  void RowsChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Search();
  void SearchFromHere();
  void Go(Direction direction);
  void ShowCount();
  QToolButton* MakeButton(const QString& name, const QString& caption, Direction direction);

  Listbox& list_;
  ListTable& table_;
  EditLine field_;
  QLabel count_;
  QTimer pause_;
  std::vector<int> matches_;
};

}  // namespace toolkit::qt
