#include "toolkit/qt/HTMLViewerView.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

// Pictures that come within this time are laid out together. Where laying out takes long, it gets a small part of the
// time only.
constexpr int shortestPause = 100;
constexpr int pausePerWork = 10;

constexpr QLatin1String linkScheme("link:");

}  // namespace

HTMLViewerView::HTMLViewerView(HTMLViewer& viewer, QWidget& parent) : ViewOf(viewer, parent) {
  setOpenLinks(false);
  setUndoRedoEnabled(false);
  setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
  followPictures_.setSingleShot(true);
  followPictures_.setInterval(shortestPause);
  connect(&followPictures_, &QTimer::timeout, this, [this] { FollowPictures(); });
  connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& address) {
    const bool isElsewhere = QApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    if (const PageLink* link = LinkOf(address.toString())) {
      FollowLink(*link, isElsewhere ? LinkTarget::NewWindow : link->Target);
    }
  });
  ShowDocument();
  HTMLViewerView::Refresh();
}

// The base class must not be left with a document that goes first.
HTMLViewerView::~HTMLViewerView() { setDocument(nullptr); }

// A page is shown once, when the handler that loads it is done.
void HTMLViewerView::Refresh() {
  ShowCommonProperties(*this, Shown());
  if (shownGeneration_ == Shown().Generation() || std::exchange(pagePending_, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { ShowPage(); }, Qt::QueuedConnection);
}

void HTMLViewerView::ShowPage() {
  pagePending_ = false;
  shownGeneration_ = Shown().Generation();
  const int frame = 2 * frameWidth() + 2 * static_cast<int>(document()->documentMargin());
  const int mostWidth = std::max(width() - frame - verticalScrollBar()->sizeHint().width(), 1);
  loading_.reset();
  pictures_.clear();
  page_ = PageFilter(Shown().Page(), mostWidth).Run();
  ShowDocument();
  loading_ = std::make_unique<PagePictures>(
      std::exchange(page_.Pictures, {}), mostWidth, devicePixelRatioF(),
      PagePictures::Events{
          .Arrived = [this](std::size_t number, const QPixmap& picture) { PictureArrived(number, picture); },
          .Failed = [this](int status, const std::string& why) { TellError(status, why); }});
  if (page_.LacksPictures) TellError(0, "There are more pictures than are shown.");
}

void HTMLViewerView::ShowDocument() {
  auto next = std::make_unique<PageDocument>(ToQt(page_.HTML), font(), palette());
  for (const auto& [number, picture] : pictures_) next->Show(number, picture);
  next->Follow();
  setDocument(next.get());
  document_ = std::move(next);
}

void HTMLViewerView::PictureArrived(std::size_t number, const QPixmap& picture) {
  pictures_[number] = picture;
  document_->Show(number, picture);
  if (!followPictures_.isActive()) followPictures_.start();
}

void HTMLViewerView::FollowPictures() {
  QElapsedTimer work;
  work.start();
  document_->Follow();
  followPictures_.setInterval(std::max(shortestPause, static_cast<int>(work.elapsed()) * pausePerWork));
}

void HTMLViewerView::TellError(int code, const std::string& description) {
  Platform::Current().WhenFree([this, view = QPointer(this), code, description] {
    if (view) Shown().Error(code, description);
  });
}

void HTMLViewerView::FollowLink(const PageLink& link, LinkTarget target) {
  const std::string url = link.URL;  // a handler may load another page
  Platform::Current().Dispatch([&] { Shown().Follow(url, target); });
}

const PageLink* HTMLViewerView::LinkOf(const QString& address) const {
  if (!address.startsWith(linkScheme)) return nullptr;
  const std::size_t number = address.mid(linkScheme.size()).toULongLong();
  return number < page_.Links.size() ? &page_.Links[number] : nullptr;
}

void HTMLViewerView::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) {
    middlePressed_ = anchorAt(event->position().toPoint());
  } else {
    QTextBrowser::mousePressEvent(event);
  }
}

void HTMLViewerView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton) {
    QTextBrowser::mouseReleaseEvent(event);
    return;
  }
  const QString address = std::exchange(middlePressed_, {});
  const PageLink* link = address == anchorAt(event->position().toPoint()) ? LinkOf(address) : nullptr;
  if (link != nullptr) FollowLink(*link, LinkTarget::NewWindow);
}

bool HTMLViewerView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTextBrowser::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const PageLink* link = LinkOf(anchorAt(help->pos()));
  if (link == nullptr) {
    QToolTip::hideText();
  } else {
    constexpr qsizetype longest = 500;
    // Escaped and put into a paragraph, the address is markup for certain, and shows as it is.
    QToolTip::showText(help->globalPos(), "<p>" + ToQt(link->URL).left(longest).toHtmlEscaped() + "</p>", viewport());
  }
  return true;
}

void HTMLViewerView::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* copySelection = menu->addAction(QStringLiteral("Copy"), this, [this] { copy(); });
  copySelection->setEnabled(textCursor().hasSelection());
  if (const PageLink* link = LinkOf(anchorAt(event->pos()))) {
    menu->addAction(QStringLiteral("Copy Link Address"), this,
                    [url = ToQt(link->URL)] { QApplication::clipboard()->setText(url); });
  }
  menu->addAction(QStringLiteral("Select All"), this, [this] { selectAll(); });
  menu->popup(event->globalPos());
}

// The links and pictures of the document mean nothing to others.
QMimeData* HTMLViewerView::createMimeDataFromSelection() const {
  auto* text = new QMimeData;
  text->setText(textCursor().selection().toPlainText());
  return text;
}

void HTMLViewerView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  const bool changesLooks = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
  if (!changesLooks || !document_) return;
  const int position = verticalScrollBar()->value();
  ShowDocument();
  verticalScrollBar()->setValue(position);
}

// There is no other page to go to.
void HTMLViewerView::doSetSource(const QUrl& /*name*/, QTextDocument::ResourceType /*type*/) {}

QVariant HTMLViewerView::loadResource(int /*type*/, const QUrl& /*name*/) { return {}; }

}  // namespace toolkit::qt
