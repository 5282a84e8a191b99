#pragma once

#include <chrono>
#include <vector>

#include <QRect>
#include <QString>

#include "tour/Step.h"

/// What a user must see. The parts of windows go by their names, in the newest window that has one.
namespace tour {

[[nodiscard]] Condition WindowsOpen(const QString& title, int count);
[[nodiscard]] Condition Says(const QString& name, const QString& text);
[[nodiscard]] Condition SaysWith(const QString& name, const QString& part);
[[nodiscard]] Condition Enabled(const std::vector<QString>& names);
[[nodiscard]] Condition Disabled(const std::vector<QString>& names);
[[nodiscard]] Condition Visible(const QString& name);
[[nodiscard]] Condition Hidden(const QString& name);
[[nodiscard]] Condition HasKeyboard(const QString& name);
/// Where a part stands in the content of its window.
[[nodiscard]] Condition StandsAt(const QString& name, const QRect& place);

[[nodiscard]] Condition Rows(const QString& list, int count);
[[nodiscard]] Condition MoreRowsThan(const QString& list, int count);
[[nodiscard]] Condition NoCellEmpty(const QString& list, int columns);
/// Rows go by the text of their first cell.
[[nodiscard]] Condition CellSays(const QString& list, const QString& row, int column, const QString& text);
[[nodiscard]] Condition NoRowSelected(const QString& list);
[[nodiscard]] Condition RowSelected(const QString& list);
/// The bar under a list tells how many of its rows hold `text`, and that the first of them is selected.
[[nodiscard]] Condition FoundFirst(const QString& list, const QString& text);
[[nodiscard]] Condition SelectedRowCopied(const QString& list);

[[nodiscard]] Condition Message(const QString& text);
[[nodiscard]] Condition MessageWith(const QString& part);
[[nodiscard]] Condition NoMessage();

/// Every picture of a page has come.
[[nodiscard]] Condition PicturesShown(const QString& page);
/// The rows of a popup menu can be chosen from.
[[nodiscard]] Condition MenuOpen(const QString& menu);
/// A progress bar has a known end, and is on the way there.
[[nodiscard]] Condition PartlyDone(const QString& bar);

[[nodiscard]] Condition NothingIn(const QString& folder);

/// Stays true for as long as `time`; once broken it stays broken.
[[nodiscard]] Condition Throughout(std::chrono::milliseconds time, const Condition& condition);

}  // namespace tour
