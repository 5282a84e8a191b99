#pragma once

#include <QAbstractTableModel>

#include "toolkit/Listbox.h"

namespace toolkit::qt {

/// The rows of a list as an item model, with very long texts truncated. It stores no text, only the number of rows that
/// it has announced, since views are notified after the list has changed.
class ListboxModel final : public QAbstractTableModel {
 public:
  explicit ListboxModel(const Listbox& list) : list_(list) {}

  /// Announces the changes of the list since the last call. Returns whether rows were added or removed.
  bool Follow();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const Listbox& list_;
  int announcedRows_ = 0;
  int announcedColumns_ = 0;
  unsigned announcedGeneration_ = 0;
};

}  // namespace toolkit::qt
