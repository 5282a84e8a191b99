#include "toolkit/qt/ListboxModel.h"

#include "toolkit/Text.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

// More of a line is not readable on a screen and slow to lay out.
constexpr std::size_t mostCharacters = 10'000;

}  // namespace

bool ListboxModel::Follow() {
  const int rows = list_.ListCount();
  if (list_.Generation() != announcedGeneration_ || list_.ColumnCount() != announcedColumns_) {
    beginResetModel();
    announcedRows_ = rows;
    announcedColumns_ = list_.ColumnCount();
    announcedGeneration_ = list_.Generation();
    endResetModel();
    return true;
  }
  if (rows <= announcedRows_) return false;
  beginInsertRows({}, announcedRows_, rows - 1);
  announcedRows_ = rows;
  endInsertRows();
  return true;
}

int ListboxModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : announcedRows_; }

int ListboxModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : announcedColumns_; }

QVariant ListboxModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  const std::string_view cell = list_.Cell(index.row(), index.column());
  return list_.Texts() == ListTexts::Terminal ? DisplayText(WithoutColorCodes(cell), mostCharacters)
                                              : DisplayText(cell, mostCharacters);
}

QVariant ListboxModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return ToQt(list_.Heading(section));
  if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
  return QAbstractTableModel::headerData(section, orientation, role);
}

}  // namespace toolkit::qt
