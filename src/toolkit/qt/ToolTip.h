#pragma once

#include <string_view>

class QPoint;
class QWidget;

namespace toolkit::qt {

/// Shows `text` (UTF-8) in a tool tip at a position on the screen, as it is and never as markup. Only the beginning of
/// a very long text is shown.
void ShowToolTip(const QPoint& position, std::string_view text, QWidget& view);

}  // namespace toolkit::qt
