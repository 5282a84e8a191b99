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

/// A slim bar at the foot of a list that looks for a text in its rows and selects the one found. It searches shortly
/// after the last key, so that typing stays quick in a long list.
class FindBar final : public QWidget {
 public:
  enum class Direction { Next, Previous };

  FindBar(Listbox& list, ListTable& table);

  /// Shows the bar, ready for typing.
  void Open();
  void Close();
  /// Goes to another row with the text; while there is none, opens the bar.
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
