#include "toolkit/qt/MessageBox.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

namespace toolkit::qt {
namespace {

// More than anybody reads in a box; laying out more would take long.
constexpr qsizetype longestText = 50'000;

QString Shorten(const QString& text) {
  if (text.size() <= longestText) return text;
  return text.left(longestText) +
         QStringLiteral("\n… (%1 more characters are not shown)").arg(text.size() - longestText);
}

/// How tall the text of `edit` is at a width of `width`, but not taller than `tallest`. The edit's own layout has no
/// width before it is shown.
int HeightOfText(const QPlainTextEdit& edit, int width, int tallest) {
  const QTextDocument& document = *edit.document();
  qreal height = 2 * document.documentMargin() + 2;
  for (QTextBlock block = document.begin(); block.isValid() && height < tallest; block = block.next()) {
    QTextLayout layout(block.text(), edit.font());
    layout.setTextOption(document.defaultTextOption());
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid() && height < tallest; line = layout.createLine()) {
      line.setLineWidth(width - 2 * document.documentMargin());
      height += line.height();
    }
    layout.endLayout();
  }
  return std::min(static_cast<int>(std::ceil(height)), tallest);
}

QPlainTextEdit* MakeTextArea(const QString& text, QWidget* parent) {
  auto* area = new QPlainTextEdit(parent);
  area->setObjectName("messageText");
  area->setAccessibleName(QStringLiteral("Message"));
  area->setReadOnly(true);
  area->setTabChangesFocus(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  area->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  QPalette palette = area->palette();
  palette.setColor(QPalette::Base, Qt::transparent);
  palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
  area->setPalette(palette);
  area->setPlainText(Shorten(text));
  return area;
}

}  // namespace

MessageBox::MessageBox(const QString& text) : QDialog(QApplication::activeWindow()) {
  setObjectName("messageBox");
  setWindowTitle(QStringLiteral(" "));
  setModal(true);
  auto* layout = new QVBoxLayout(this);
  auto* area = MakeTextArea(text, this);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  layout->addWidget(area);
  layout->addWidget(buttons);

  const QSize screenSize = screen()->availableSize();
  const int textWidth = area->fontMetrics().horizontalAdvance(Shorten(text).left(200).section('\n', 0, 0)) + 24;
  const int width = std::min(std::clamp(textWidth, 260, 480), screenSize.width() - 80);
  area->setFixedWidth(width);
  area->setFixedHeight(HeightOfText(*area, width, screenSize.height() / 2));
  layout->setSizeConstraint(QLayout::SetFixedSize);
  buttons->button(QDialogButtonBox::Ok)->setFocus();
}

}  // namespace toolkit::qt
