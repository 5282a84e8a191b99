#include "toolkit/qt/HTMLViewerView.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QTextDocumentFragment>

#include "toolkit/DesktopTexts.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

// Pictures that arrive within this time (in ms) are laid out together. The next layout waits this many times as long as
// the last one took.
constexpr int shortestPause = 100;
constexpr int pausePerWork = 10;
constexpr int leastContrast = 90;

/// The palette's colour of links, or another one if its contrast is too low: not every dark palette defines one.
QColor LinkColor(const QPalette& palette) {
  const int ground = qGray(palette.color(QPalette::Base).rgb());
  const QColor link = palette.color(QPalette::Link);
  if (std::abs(qGray(link.rgb()) - ground) >= leastContrast) return link;
  return ground < 128 ? QColor(126, 160, 255) : QColor(0, 0, 200);
}

}  // namespace

HTMLViewerView::HTMLViewerView(HTMLViewer& viewer, QWidget& parent) : ViewOf(viewer, parent) {
  setOpenLinks(false);
  setUndoRedoEnabled(false);
  setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
  layOut_.setSingleShot(true);
  layOut_.setInterval(shortestPause);
  connect(&layOut_, &QTimer::timeout, this, [this] { LayOutPictures(); });
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& address) {
    FollowLink(address.toString(), QApplication::keyboardModifiers().testFlag(Qt::ControlModifier));
  });
  HTMLViewerView::Refresh();
}

void HTMLViewerView::Refresh() {
  ShowCommonProperties(*this, Model());
  if (shownGeneration_ != Model().Generation()) FollowLater();
}

void HTMLViewerView::Follow() {
  shownGeneration_ = Model().Generation();
  const int frame = 2 * frameWidth() + 2 * static_cast<int>(document()->documentMargin());
  const int mostWidth = std::max(width() - frame - verticalScrollBar()->sizeHint().width(), 1);
  const auto tellError = [this](int code, const std::string& description) {
    Platform::Current().WhenFree([this, view = QPointer(this), code, description] {
      if (view) Model().Error(code, description);
    });
  };
  pictures_.clear();
  page_ = FilterPage(ToQt(Model().Page()), mostWidth);
  if (page_.IsCut) page_.HTML += "<p><i>" + ToQt(DesktopTexts::kPageIsCutNotice()).toHtmlEscaped() + "</i></p>";
  ShowDocument();
  const auto arrived = [this](std::size_t number, const QPixmap& picture) {
    waiting_.append(QStringLiteral("picture:%1").arg(number));
    pictures_[waiting_.last()] = picture;
    document()->addResource(QTextDocument::ImageResource, waiting_.last(), picture);
    if (!layOut_.isActive()) layOut_.start();
  };
  loading_ = std::make_unique<PagePictures>(std::exchange(page_.Pictures, {}), mostWidth, devicePixelRatioF(),
                                            PagePictures::Events{.Arrived = arrived, .Failed = tellError});
  if (page_.LacksPictures) tellError(0, "There are more pictures than are shown.");
}

// setDocument() deletes the old document, because this view is its parent.
void HTMLViewerView::ShowDocument() {
  auto* next = new QTextDocument(document()->parent());
  next->setUndoRedoEnabled(false);
  next->setDefaultFont(font());
  next->setDefaultStyleSheet(QStringLiteral("a { color: %1 }").arg(LinkColor(palette()).name()));
  next->setHtml(page_.HTML);
  waiting_.clear();
  setDocument(next);
}

// Only the range from the first picture to the last one is laid out again.
void HTMLViewerView::LayOutPictures() {
  QElapsedTimer work;
  work.start();
  int first = document()->characterCount();
  int end = 0;
  for (QTextCursor at = document()->find(QChar(QChar::ObjectReplacementCharacter)); !at.isNull();
       at = document()->find(QChar(QChar::ObjectReplacementCharacter), at)) {
    if (!waiting_.contains(at.charFormat().toImageFormat().name())) continue;
    first = std::min(first, at.selectionStart());
    end = at.selectionEnd();
  }
  waiting_.clear();
  if (first < end) document()->markContentsDirty(first, end - first);
  layOut_.setInterval(std::max(shortestPause, static_cast<int>(work.elapsed()) * pausePerWork));
}

// If this returned nothing, Qt would look for a file.
QVariant HTMLViewerView::loadResource(int /*type*/, const QUrl& name) {
  QPixmap empty(1, 1);
  empty.fill(Qt::transparent);
  return pictures_.value(name.toString(), empty);
}

const PageLink* HTMLViewerView::LinkOf(const QString& address) const {
  const auto number = ParseNumber<std::size_t>(FromQt(address.section(':', 1)));
  return number && *number < page_.Links.size() ? &page_.Links[*number] : nullptr;
}

void HTMLViewerView::FollowLink(const QString& address, bool isElsewhere) {
  const PageLink* found = LinkOf(address);
  if (found == nullptr) return;
  const PageLink link = *found;  // the handler may load another page
  Platform::Current().Dispatch([&] { Model().Follow(link.URL, isElsewhere ? LinkTarget::NewWindow : link.Target); });
}

void HTMLViewerView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton) return QTextBrowser::mouseReleaseEvent(event);
  const QString pressed = anchorAt(viewport()->mapFromGlobal(event->points().first().globalPressPosition()).toPoint());
  if (pressed == anchorAt(event->position().toPoint())) FollowLink(pressed, true);
}

void HTMLViewerView::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(ToQt(DesktopTexts::kCopyCommand()), this, [this] { copy(); })
      ->setEnabled(textCursor().hasSelection());
  if (const PageLink* link = LinkOf(anchorAt(event->pos()))) {
    menu->addAction(ToQt(DesktopTexts::kCopyLinkCommand()), this,
                    [url = ToQt(link->URL)] { QApplication::clipboard()->setText(url); });
  }
  menu->addAction(ToQt(DesktopTexts::kSelectAllCommand()), this, [this] { selectAll(); });
  menu->popup(event->globalPos());
}

// Plain text only: the addresses in the document have no meaning in other programs.
QMimeData* HTMLViewerView::createMimeDataFromSelection() const {
  auto* text = new QMimeData;
  text->setText(textCursor().selection().toPlainText());
  return text;
}

void HTMLViewerView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  const int position = verticalScrollBar()->value();
  ShowDocument();
  verticalScrollBar()->setValue(position);
}

}  // namespace toolkit::qt
