#pragma once

#include <string_view>

class QPoint;
class QWidget;

namespace toolkit::qt {

/// Shows `text` (UTF-8) in a tool tip at a position on the screen, never interpreted as markup. A very long text is
/// truncated.
void ShowToolTip(const QPoint& position, std::string_view text, QWidget& view);

}  // namespace toolkit::qt
