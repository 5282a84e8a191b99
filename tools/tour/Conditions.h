#pragma once

#include <QString>

#include "tour/Step.h"

/// What a user must see. The parts of windows go by their names, in the newest window that has one.
namespace tour {

[[nodiscard]] Condition Visible(const QString& name);
[[nodiscard]] Condition Enabled(const QString& name);
/// `part` is in the text of what is called `name`.
[[nodiscard]] Condition Says(const QString& name, const QString& part);
/// A list has so many rows, or more.
[[nodiscard]] Condition HasRows(const QString& list, int least);
/// Every picture of a page has come.
[[nodiscard]] Condition PicturesShown(const QString& page);
/// A progress bar has a known end, and is on the way there.
[[nodiscard]] Condition PartlyDone(const QString& bar);
/// No window with this title is open.
[[nodiscard]] Condition Closed(const QString& title);

}  // namespace tour
