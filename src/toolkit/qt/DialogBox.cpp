#include "toolkit/qt/DialogBox.h"

#include <algorithm>
#include <cmath>

#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

#include "toolkit/DesktopTexts.h"
#include "toolkit/Text.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

// More text is not readable in a box and slow to lay out.
constexpr qsizetype longestText = 50'000;
constexpr int narrowestText = 260;
constexpr int widestText = 480;
constexpr int scrollBarWidth = 24;
// The most that is placed beside a text: the icon and the margins.
constexpr int besideText = 96;
// The same for the title in the frame.
constexpr int besideTitle = 120;

QString Shorten(const QString& text) {
  if (text.size() <= longestText) return text;
  const std::string notice =
      ReplaceAll(DesktopTexts::kTextIsCutNotice(), "<<Count>>", std::to_string(text.size() - longestText));
  return text.left(longestText) + "\n… (" + ToQt(notice) + ')';
}

/// The width of the longest of the first lines, within the limits of a box.
int WidthOfText(const QFontMetrics& font, const QString& text) {
  int width = narrowestText;
  for (const QString& line : text.left(2000).split('\n')) {
    width = std::max(width, font.horizontalAdvance(line.left(200)) + 2 * font.averageCharWidth() + scrollBarWidth);
  }
  return std::min(width, widestText);
}

/// The height of the text of `area` at the given width, at most `tallest`. The area's own layout has no width before it
/// is shown.
int HeightOfText(const QPlainTextEdit& area, int width, int tallest) {
  const QTextDocument& document = *area.document();
  qreal height = 2 * document.documentMargin() + 2;
  for (QTextBlock block = document.begin(); block.isValid() && height < tallest; block = block.next()) {
    QTextLayout layout(block.text(), area.font());
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

QWidget* MakeCautionSign(const QWidget& box) {
  auto* sign = new QLabel;
  const int side = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
  const QIcon icon = box.style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, &box);
  sign->setPixmap(icon.pixmap(QSize(side, side), box.devicePixelRatioF()));
  sign->setObjectName("caution");
  sign->setAccessibleName(ToQt(DesktopTexts::kCautionSign()));
  return sign;
}

void PopUpTextMenu(QPlainTextEdit& area, const QPoint& position) {
  auto* menu = new QMenu(&area);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* copy = menu->addAction(ToQt(DesktopTexts::kCopyCommand()), &area, &QPlainTextEdit::copy);
  copy->setEnabled(area.textCursor().hasSelection());
  menu->addAction(ToQt(DesktopTexts::kSelectAllCommand()), &area, &QPlainTextEdit::selectAll);
  menu->popup(area.viewport()->mapToGlobal(position));
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
  area->setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(area, &QWidget::customContextMenuRequested, area,
                   [area](const QPoint& position) { PopUpTextMenu(*area, position); });
  QPalette palette = area->palette();
  palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
  area->setPalette(palette);
  area->setFont(font);
  area->setPlainText(text);
  const int width = std::min(WidthOfText(area->fontMetrics(), text), screen.width() - besideText);
  area->setFixedSize(width, HeightOfText(*area, width, screen.height() / 3));
  return area;
}

}  // namespace

DialogBox::DialogBox(const MessageDialog& dialog, QWidget* owner, const QString& about) : QDialog(owner) {
  setObjectName("dialogBox");
  // With an empty title Qt would show the program's name.
  setWindowTitle(about.isEmpty() ? QStringLiteral(" ") : about);
  setAccessibleName(QApplication::applicationName());
  const std::string gap = dialog.Explanation.empty() ? "" : "\n";
  const QString aboutLine = about.isEmpty() ? about : about + '\n';
  setAccessibleDescription(aboutLine + Shorten(ToQt(dialog.Message + gap + dialog.Explanation)));
  setModal(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeTexts(dialog));
  QWidget* buttons = MakeButtons(dialog);
  buttons->setMinimumWidth(std::min(fontMetrics().horizontalAdvance(about) + besideTitle, widestText));
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  if (defaultButton_ != nullptr) {
    defaultButton_->setDefault(true);
    defaultButton_->setFocus();
  }
}

bool DialogBox::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease ||
                     event->type() == QEvent::ShortcutOverride;
  if (!isKey || TakesKeys()) return QDialog::eventFilter(watched, event);
  moment_.start();
  event->accept();  // otherwise Qt looks for a shortcut
  return true;
}

void DialogBox::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  moment_.start();
  qApp->installEventFilter(this);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

QWidget* DialogBox::MakeTexts(const MessageDialog& dialog) {
  const QSize screenSize = screen()->availableSize();
  auto* row = new QWidget;
  auto* rowLayout = new QHBoxLayout(row);
  rowLayout->setContentsMargins({});
  if (dialog.Icon == DialogIcon::Caution) rowLayout->addWidget(MakeCautionSign(*this), 0, Qt::AlignTop);

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
                       const LocalizedText& ownCaption, QDialogButtonBox::ButtonRole role, DialogButton meaning) {
    if (!button.Visible) return;
    const bool isStandard = button.Caption.empty();
    QPushButton* made = isStandard ? buttons->addButton(standard) : buttons->addButton(ToQt(button.Caption), role);
    if (isStandard) made->setText(ToQt(ownCaption()));
    connect(made, &QPushButton::clicked, this, [this, meaning] {
      pressed_ = meaning;
      accept();
    });
    if (defaultButton_ == nullptr) defaultButton_ = made;
  };
  // clang-format off
  add(dialog.ActionButton,          QDialogButtonBox::Ok,     DesktopTexts::kOKButton,     QDialogButtonBox::AcceptRole, DialogButton::Action);
  add(dialog.AlternateActionButton, QDialogButtonBox::No,     DesktopTexts::kNoButton,     QDialogButtonBox::ActionRole, DialogButton::Alternate);
  add(dialog.CancelButton,          QDialogButtonBox::Cancel, DesktopTexts::kCancelButton, QDialogButtonBox::RejectRole, DialogButton::Cancel);
  // clang-format on
  return buttons;
}

}  // namespace toolkit::qt
