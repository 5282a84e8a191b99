#include "toolkit/qt/ToolTip.h"

#include <QToolTip>

#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t longestToolTip = 2000;

}  // namespace

// Qt guesses whether a text is markup. Escaped and in a paragraph, it always is.
QString ToolTipMarkup(QString text) { return "<p>" + text.remove('\r').toHtmlEscaped().replace('\n', "<br>") + "</p>"; }

void ShowToolTip(const QPoint& position, std::string_view text, QWidget& view) {
  QToolTip::showText(position, ToolTipMarkup(ToQt(FirstCharacters(text, longestToolTip))), &view);
}

}  // namespace toolkit::qt
