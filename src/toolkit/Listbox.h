#pragma once

#include <any>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/Control.h"
#include "toolkit/RowStore.h"

namespace toolkit {

enum class ScrollBars { Vertical, Both };

/// What the texts of a list are. Those of a terminal are in a font of fixed width, and its colour codes (ECMA-48) are
/// not shown, though copied and saved.
enum class ListTexts { Plain, Terminal };

/// A list of rows with text cells, of which the user can select one. Rows and columns count from 0.
///
/// Setters raise no event but for the selection: Change is raised whenever the selected row becomes another one, or
/// none, whoever caused it.
class Listbox final : public ControlOf<Listbox> {
 public:
  Listbox() : ControlOf(FocusPolicy::Accepts) {}

  /// The selection changed. The rows are what they are to be by then.
  Event<> Change;
  /// The user double-clicked the list, or pressed Enter on its selected row. ListIndex may be -1.
  Event<> DoubleClick;

  [[nodiscard]] int ColumnCount() const { return columnCount_; }
  Listbox& ColumnCount(int count) { return Set(columnCount_, count); }
  /// Widths in points, separated by commas; "*" takes what the others leave. Widths beyond the columns are ignored,
  /// and a column without a width shares what is left.
  [[nodiscard]] const std::string& ColumnWidths() const { return columnWidths_; }
  Listbox& ColumnWidths(std::string widths) { return Set(columnWidths_, std::move(widths)); }
  [[nodiscard]] bool HasHeading() const { return hasHeading_; }
  Listbox& HasHeading(bool hasHeading) { return Set(hasHeading_, hasHeading); }
  [[nodiscard]] ScrollBars Scrolling() const { return scrollBars_; }
  Listbox& Scrolling(ScrollBars scrollBars) { return Set(scrollBars_, scrollBars); }
  [[nodiscard]] ListTexts Texts() const { return texts_; }
  Listbox& Texts(ListTexts texts) { return Set(texts_, texts); }
  /// What a file of the rows is called, without an ending; the accessible name where it is empty.
  [[nodiscard]] std::string FileName() const { return fileName_.empty() ? AccessibleName() : fileName_; }
  void FileName(std::string name) { fileName_ = std::move(name); }
  /// Headings beyond the columns are kept and not shown.
  [[nodiscard]] std::string Heading(int column) const;
  void Heading(int column, std::string heading);

  [[nodiscard]] int ListCount() const { return static_cast<int>(rows_.RowCount()); }
  /// Cells beyond the columns are kept and not shown.
  void AddRow(std::span<const std::string_view> cells);
  void AddRow(std::initializer_list<std::string_view> cells) { AddRow(std::span(cells.begin(), cells.size())); }
  /// Raises Change if a row was selected.
  void DeleteAllRows();
  /// The empty text for a cell that there is not. Valid while the list's rows are.
  [[nodiscard]] std::string_view Cell(int row, int column) const;
  /// An object kept with the row; empty if there is none.
  [[nodiscard]] std::any RowTag(int row) const;
  void RowTag(int row, std::any tag);
  /// The texts of the row that are shown, separated by tabs.
  [[nodiscard]] std::string RowText(int row) const;

  /// The selected row, -1 if there is none.
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  /// Selects a row, or none with -1. A row that does not exist counts as none. Raises Change if that is a change.
  void ListIndex(int row);

  /// Changes whenever rows are removed, so that what a view remembers of them is void; not when rows are added.
  [[nodiscard]] unsigned Generation() const { return generation_; }

  /// Selects a row as the user would, -1 for a click beside the rows: does nothing while the list is disabled or
  /// invisible.
  void Select(int row);
  /// Double-clicks the list as the user would, or presses Enter on it.
  void Activate() const;

 private:
  int columnCount_ = 1;
  std::string columnWidths_;
  bool hasHeading_ = false;
  ScrollBars scrollBars_ = ScrollBars::Both;
  ListTexts texts_ = ListTexts::Plain;
  std::string fileName_;
  std::vector<std::string> headings_;
  RowStore rows_;
  std::vector<std::any> tags_;
  int listIndex_ = -1;
  unsigned generation_ = 0;
};

/// The widths in points of columns that together fill `available`, as `widths` asks for them (see
/// Listbox::ColumnWidths), or as the user does, who comes first. What is no number counts as "*"; no column is narrower
/// than 0.
[[nodiscard]] std::vector<int> LayOutColumns(std::string_view widths, std::vector<std::optional<int>> usersWidths,
                                             int available);

}  // namespace toolkit
