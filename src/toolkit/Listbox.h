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

/// How the texts of a list are shown. Terminal texts use a font of fixed width, and their colour codes (ECMA-48) are
/// hidden, but copied and saved.
enum class ListTexts { Plain, Terminal };

/// A list of rows with text cells, of which the user can select one. Rows and columns count from 0.
///
/// Setters raise no event, except Change: it is raised whenever the selected row changes, by the user or the program.
class Listbox final : public ControlOf<Listbox> {
 public:
  Listbox() : ControlOf(FocusPolicy::Accepts) {}

  /// The selection has changed. The rows are complete by then.
  Event<> Change;
  /// The user double-clicked the list, or pressed Enter on its selected row. ListIndex may be -1.
  Event<> DoubleClick;

  [[nodiscard]] int ColumnCount() const { return columnCount_; }
  Listbox& ColumnCount(int count) { return Set(columnCount_, count); }
  /// Widths in points, separated by commas; "*" takes the remaining width. Extra widths are ignored, and a column
  /// without a width counts as "*".
  [[nodiscard]] const std::string& ColumnWidths() const { return columnWidths_; }
  Listbox& ColumnWidths(std::string widths) { return Set(columnWidths_, std::move(widths)); }
  [[nodiscard]] bool HasHeading() const { return hasHeading_; }
  Listbox& HasHeading(bool hasHeading) { return Set(hasHeading_, hasHeading); }
  [[nodiscard]] ScrollBars Scrolling() const { return scrollBars_; }
  Listbox& Scrolling(ScrollBars scrollBars) { return Set(scrollBars_, scrollBars); }
  [[nodiscard]] ListTexts Texts() const { return texts_; }
  Listbox& Texts(ListTexts texts) { return Set(texts_, texts); }
  /// The name of a file that the rows are saved to, without extension; by default the accessible name.
  [[nodiscard]] std::string FileName() const { return fileName_.empty() ? AccessibleName() : fileName_; }
  void FileName(std::string name) { fileName_ = std::move(name); }
  /// Headings beyond the last column are stored but not shown.
  [[nodiscard]] std::string Heading(int column) const;
  void Heading(int column, std::string heading);

  [[nodiscard]] int ListCount() const { return static_cast<int>(rows_.RowCount()); }
  /// Cells beyond the last column are stored but not shown.
  void AddRow(std::span<const std::string_view> cells);
  void AddRow(std::initializer_list<std::string_view> cells) { AddRow(std::span(cells.begin(), cells.size())); }
  /// Raises Change if a row was selected.
  void DeleteAllRows();
  /// Empty if there is no such cell. Valid until the rows are removed.
  [[nodiscard]] std::string_view Cell(int row, int column) const;
  /// An object stored with the row; empty if there is none.
  [[nodiscard]] std::any RowTag(int row) const;
  void RowTag(int row, std::any tag);
  /// The visible texts of the row, separated by tabs.
  [[nodiscard]] std::string RowText(int row) const;

  /// The selected row, -1 if there is none.
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  /// Selects a row; -1 or a row that does not exist clears the selection. Raises Change if the selection changes.
  void ListIndex(int row);

  /// Changes whenever rows are removed, which invalidates what a view has stored about them; not when rows are added.
  [[nodiscard]] unsigned Generation() const { return generation_; }

  /// Selects a row as the user would, -1 for a click beside the rows. Ignored while the list is disabled or invisible.
  void Select(int row);
  /// Double-clicks the list as the user would, or presses Enter on it. Ignored while the list is disabled or invisible.
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

/// The widths in points of columns that together fill `available`: the user's, where set, or those in `widths` (see
/// Listbox::ColumnWidths). Anything but a number counts as "*"; no width is negative.
[[nodiscard]] std::vector<int> LayOutColumns(std::string_view widths, std::vector<std::optional<int>> usersWidths,
                                             int available);

}  // namespace toolkit
