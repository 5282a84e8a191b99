#include "toolkit/qt/DialogBox.h"

#include <algorithm>

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTextBlock>
#include <QVBoxLayout>

#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

// More than anybody reads in a box; laying out more would take long.
constexpr qsizetype longestText = 50'000;
constexpr int narrowestText = 260;
constexpr int widestText = 480;
constexpr int iconSize = 48;

QString Shorten(const QString& text) {
  if (text.size() <= longestText) return text;
  return text.left(longestText) +
         QStringLiteral("\n… (%1 more characters are not shown)").arg(text.size() - longestText);
}

/// How wide the longest of the first lines is, within the limits of a box.
int WidthOfText(const QFontMetrics& font, const QString& text) {
  int width = narrowestText;
  for (const QString& line : text.left(2000).split('\n')) {
    width = std::max(width, font.horizontalAdvance(line.left(200)) + 2 * font.averageCharWidth() + iconSize / 2);
  }
  return std::min(width, widestText);
}

/// How tall the text is at the width of `area`, but not taller than `tallest`.
int HeightOfText(const QPlainTextEdit& area, int tallest) {
  const int lineHeight = area.fontMetrics().lineSpacing();
  int height = 2 * static_cast<int>(area.document()->documentMargin()) + 2;
  for (QTextBlock block = area.document()->begin(); block.isValid() && height < tallest; block = block.next()) {
    area.document()->documentLayout()->blockBoundingRect(block);  // lays the block out
    height += lineHeight * std::max(block.layout()->lineCount(), 1);
  }
  return std::min(height, tallest);
}

QPlainTextEdit* MakeTextArea(const QString& name, const QString& text, const QFont& font, QSize screen) {
  auto* area = new QPlainTextEdit;
  area->setObjectName(name);
  area->setAccessibleName(text);
  area->setReadOnly(true);
  area->setTabChangesFocus(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  area->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  area->viewport()->setAutoFillBackground(false);
  QPalette palette = area->palette();
  palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
  area->setPalette(palette);
  area->setFont(font);
  area->setPlainText(text);
  area->setFixedWidth(std::min(WidthOfText(area->fontMetrics(), text), screen.width() - 2 * iconSize));
  area->resize(area->maximumWidth(), area->height());
  area->setFixedHeight(HeightOfText(*area, screen.height() / 3));
  return area;
}

QLabel* MakeIcon(const QStyle& style) {
  auto* icon = new QLabel;
  icon->setPixmap(style.standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize));
  icon->setAlignment(Qt::AlignTop);
  return icon;
}

}  // namespace

DialogBox::DialogBox(const MessageDialog& dialog) : QDialog(QApplication::activeWindow()) {
  setObjectName("dialogBox");
  setWindowTitle(QStringLiteral(" "));  // an empty title would show the program's name
  setModal(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeTexts(dialog));
  layout->addWidget(MakeButtons(dialog));
  layout->setSizeConstraint(QLayout::SetFixedSize);
  if (defaultButton_ != nullptr) {
    defaultButton_->setDefault(true);
    defaultButton_->setFocus();
  }
}

QWidget* DialogBox::MakeTexts(const MessageDialog& dialog) {
  const QSize screenSize = screen()->availableSize();
  auto* row = new QWidget;
  auto* rowLayout = new QHBoxLayout(row);
  rowLayout->setContentsMargins({});
  if (dialog.Icon == DialogIcon::Caution) rowLayout->addWidget(MakeIcon(*style()));

  auto* column = new QVBoxLayout;
  QFont messageFont = font();
  messageFont.setBold(!dialog.Explanation.empty());
  column->addWidget(MakeTextArea("message", Shorten(ToQt(dialog.Message)), messageFont, screenSize));
  if (!dialog.Explanation.empty()) {
    column->addWidget(MakeTextArea("explanation", Shorten(ToQt(dialog.Explanation)), font(), screenSize));
  }
  rowLayout->addLayout(column);
  return row;
}

QWidget* DialogBox::MakeButtons(const MessageDialog& dialog) {
  auto* buttons = new QDialogButtonBox;
  const auto add = [&](const MessageDialog::Button& button, QDialogButtonBox::StandardButton standard,
                       QDialogButtonBox::ButtonRole role, DialogButton meaning) {
    if (!button.Visible) return;
    QPushButton* made = button.Caption.empty() ? buttons->addButton(standard)
                                               : buttons->addButton(ToQt(button.Caption).replace('&', "&&"), role);
    connect(made, &QPushButton::clicked, this, [this, meaning] {
      pressed_ = meaning;
      accept();
    });
    if (defaultButton_ == nullptr) defaultButton_ = made;
  };
  add(dialog.ActionButton, QDialogButtonBox::Ok, QDialogButtonBox::AcceptRole, DialogButton::Action);
  add(dialog.AlternateActionButton, QDialogButtonBox::No, QDialogButtonBox::ActionRole, DialogButton::Alternate);
  add(dialog.CancelButton, QDialogButtonBox::Cancel, QDialogButtonBox::RejectRole, DialogButton::Cancel);
  return buttons;
}

}  // namespace toolkit::qt
