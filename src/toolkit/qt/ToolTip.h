#pragma once

#include <string_view>

#include <QString>

class QPoint;
class QWidget;

namespace toolkit::qt {

/// The markup of a tool tip that shows `text` itself, never interpreted as markup.
[[nodiscard]] QString ToolTipMarkup(QString text);

/// Shows `text` (UTF-8) in such a tool tip at a position on the screen. A very long text is truncated.
void ShowToolTip(const QPoint& position, std::string_view text, QWidget& view);

}  // namespace toolkit::qt
