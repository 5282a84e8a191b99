#pragma once

#include <QAbstractTableModel>

#include "toolkit/Listbox.h"

namespace toolkit::qt {

/// The rows of a list as an item model, with the beginnings of very long texts. It holds no text of its own; it only
/// remembers how many rows it has announced, since the list changes first and the views are told later.
class ListboxModel final : public QAbstractTableModel {
 public:
  explicit ListboxModel(const Listbox& list) : list_(list) {}

  /// Announces what has changed in the list since the last call. Returns whether rows came or went.
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
