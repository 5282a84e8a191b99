#include "toolkit/qt/QtPlatform.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QIcon>
#include <QPixmap>
#include <QPointer>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include "toolkit/Picture.h"
#include "toolkit/Window.h"
#include "toolkit/qt/Accessibility.h"
#include "toolkit/qt/DialogBox.h"
#include "toolkit/qt/DisplayText.h"
#include "toolkit/qt/PictureDecoder.h"
#include "toolkit/qt/QtPicture.h"
#include "toolkit/qt/QtProcess.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtWindow.h"
#include "toolkit/qt/Translations.h"

namespace toolkit::qt {
namespace {

QIcon IconOf(const ProgramFacts& program) { return {PixmapOf(*OpenPictureResource(program.Id))}; }

FolderItem Folder(QStandardPaths::StandardLocation location) {
  return FolderItem(FromQt(QStandardPaths::writableLocation(location)));
}

class QtTimer final : public PlatformTimer {
 public:
  QtTimer(std::chrono::milliseconds period, std::function<void()> expired)
      : due_(Platform::Current().CountedTime() + period), expired_(std::move(expired)) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      Platform::Current().WhenFree([this, timer = QPointer(&timer_)] {
        if (timer) Ring();
      });
    });
    timer_.start(period);
  }

 private:
  // If a dialog was open, the QTimer expires too early.
  void Ring() {
    const auto left = due_ - Platform::Current().CountedTime();
    if (left.count() > 0) {
      timer_.start(left);
    } else {
      const auto handler = expired_;  // the timer may be destroyed in it
      handler();
    }
  }

  std::chrono::milliseconds due_;
  std::function<void()> expired_;
  QTimer timer_;
};

/// Handles the desktop's request to quit. Qt would close the windows, and stop at one that refuses.
class SessionWatch final : public QObject {
 public:
  explicit SessionWatch(std::function<void()> ended) : ended_(std::move(ended)) { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Quit || watched != qApp) return false;
    ended_();
    return true;
  }

 private:
  std::function<void()> ended_;
};

}  // namespace

QtPlatform::QtPlatform(ProgramFacts program, int& argumentCount, char** arguments)
    : Platform(std::move(program)), application_(std::make_unique<QApplication>(argumentCount, arguments)) {
  QApplication::setApplicationName(ToQt(Program().Name));
  QApplication::setDesktopFileName(ToQt(Program().Id));
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(IconOf(Program()));
  DescribeViews();
  sessionWatch_ = std::make_unique<SessionWatch>([this] { EndSession(); });
}

QtPlatform::~QtPlatform() {
  CloseWindows();
  DropEvents();
  closedViews_.clear();
}

std::unique_ptr<HTTPTransfer> QtPlatform::StartTransfer(HTTPRequest request, HTTPTransferEvents& events) {
  return transfers_.Start(std::move(request), events);
}

DialogButton QtPlatform::AskUser(const MessageDialog& dialog, const Window* owner) {
  if (quitting_) return DialogButton::Cancel;
  ++nestedLoops_;
  const std::string about = dialog.About.empty() && owner != nullptr ? owner->Subject() : dialog.About;
  DialogBox box(dialog, owner == nullptr ? nullptr : ViewOf(*owner), DisplayName(about));
  box.exec();
  --nestedLoops_;
  DropClosedViewsLater();
  return box.Pressed();
}

void QtPlatform::RunNextEventLater() {
  QTimer::singleShot(0, application_.get(), [this] { RunNextEvent(); });
}

void QtPlatform::RunEventsUntil(const std::function<bool()>& isDone) {
  ++nestedLoops_;
  while (!quitting_ && !isDone()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  --nestedLoops_;
  DropClosedViewsLater();
}

bool QtPlatform::RunDueEvents() {
  if (quitting_) return false;
  ++nestedLoops_;
  QCoreApplication::processEvents();
  --nestedLoops_;
  DropClosedViewsLater();
  return !quitting_;
}

std::unique_ptr<PlatformTimer> QtPlatform::StartTimer(std::chrono::milliseconds period, std::function<void()> expired) {
  return std::make_unique<QtTimer>(period, std::move(expired));
}

std::unique_ptr<ChildProcess> QtPlatform::StartProcess(const std::string& commandLine,
                                                       std::function<void(ProcessEnd)> ended) {
  return std::make_unique<QtProcess>(commandLine, std::move(ended));
}

std::chrono::milliseconds QtPlatform::Uptime() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

void QtPlatform::TrustAuthority(std::string_view certificate) { transfers_.Trust(certificate); }

std::optional<Pixels> QtPlatform::DecodePicture(std::string encoded, const StillWanted& wanted) {
  std::optional<QImage> image;
  const PictureDecoder decoder(std::exchange(encoded, {}), std::numeric_limits<int>::max(),
                               [&](QImage decoded) { image = std::move(decoded); });
  RunEventsUntil([&] { return image || !IsWanted(wanted); });
  if (!image || image->isNull()) return std::nullopt;
  const auto* const colors = reinterpret_cast<const std::uint32_t*>(image->constBits());
  return Pixels{.Size = {.Width = image->width(), .Height = image->height()},
                .Colors = {colors, colors + image->sizeInBytes() / qsizetype{sizeof(std::uint32_t)}}};
}

std::optional<std::string> QtPlatform::Translation(const std::string& key, const std::string& language) {
  if (!translations_) translations_ = std::make_unique<Translations>();
  return translations_->Find(key, language);
}

bool QtPlatform::OpenURL(const std::string& url) { return QDesktopServices::openUrl(QUrl(ToQt(url))); }

int QtPlatform::RunLoop(const std::function<void()>& start) {
  QTimer::singleShot(0, [this, &start] { Dispatch(start); });
  const int status = QApplication::exec();
  quitting_ = false;
  return status;
}

void QtPlatform::Quit(int status) {
  quitting_ = true;
  QApplication::exit(status);
}

FolderItem QtPlatform::ApplicationDataFolder() const { return Folder(QStandardPaths::GenericDataLocation); }

FolderItem QtPlatform::DesktopFolder() const { return Folder(QStandardPaths::DesktopLocation); }

FolderItem QtPlatform::CacheFolder() const { return Folder(QStandardPaths::GenericCacheLocation); }

void QtPlatform::Present(Window& window) {
  views_.push_back(std::make_unique<QtWindow>(window.shared_from_this()));
  views_.back()->Appear();
}

void QtPlatform::BringToFront(Window& window) {
  if (QtWindow* view = ViewOf(window)) view->ComeToFront();
}

QtWindow* QtPlatform::ViewOf(const Window& window) const {
  const auto view = std::ranges::find_if(views_, [&](const auto& shown) { return shown->Shows(window); });
  return view == views_.end() ? nullptr : view->get();
}

void QtPlatform::Withdraw(Window& window) {
  const auto view = std::ranges::find(views_, ViewOf(window), [](const auto& shown) { return shown.get(); });
  if (view == views_.end()) return;
  (*view)->hide();
  closedViews_.push_back(std::move(*view));
  views_.erase(view);
  DropClosedViewsLater();
}

void QtPlatform::DropClosedViewsLater() {
  QTimer::singleShot(0, application_.get(), [this] {
    if (nestedLoops_ == 0) closedViews_.clear();
  });
}

}  // namespace toolkit::qt
