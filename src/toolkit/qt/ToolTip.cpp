#include "toolkit/qt/ToolTip.h"

#include <QToolTip>

#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t longestToolTip = 2000;

}  // namespace

// Qt guesses whether a text is markup. Escaped and in a paragraph, it always is.
void ShowToolTip(const QPoint& position, std::string_view text, QWidget& view) {
  const QString shown = ToQt(FirstCharacters(text, longestToolTip)).remove('\r').toHtmlEscaped().replace('\n', "<br>");
  QToolTip::showText(position, "<p>" + shown + "</p>", &view);
}

}  // namespace toolkit::qt
