#pragma once

#include <QString>

#include "tour/Step.h"

/// What a user must see. Widgets are found by their object names, in the newest window that has one.
namespace tour {

[[nodiscard]] Condition Visible(const QString& name);
[[nodiscard]] Condition Enabled(const QString& name);
/// The text of the widget contains `part`.
[[nodiscard]] Condition Says(const QString& name, const QString& part);
/// A list has at least `least` rows.
[[nodiscard]] Condition HasRows(const QString& list, int least);
/// Every picture of a page has been loaded.
[[nodiscard]] Condition PicturesShown(const QString& page);
/// A progress bar is between its start and its end.
[[nodiscard]] Condition PartlyDone(const QString& bar);
/// No window with this title is open.
[[nodiscard]] Condition Closed(const QString& title);

}  // namespace tour
