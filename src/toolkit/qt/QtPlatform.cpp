#include "toolkit/qt/QtPlatform.h"

#include <algorithm>
#include <malloc.h>

#include <QApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QIcon>
#include <QPixmap>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include "toolkit/Picture.h"
#include "toolkit/Window.h"
#include "toolkit/qt/Accessibility.h"
#include "toolkit/qt/DialogBox.h"
#include "toolkit/qt/QtPicture.h"
#include "toolkit/qt/QtProcess.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtWindow.h"
#include "toolkit/qt/SystemProxies.h"
#include "toolkit/qt/Translations.h"

namespace toolkit::qt {
namespace {

QIcon ProgramIcon() { return {Decode(*OpenPictureResource("corvane"))}; }

FolderItem Folder(QStandardPaths::StandardLocation location) {
  return FolderItem(FromQt(QStandardPaths::writableLocation(location)));
}

class QtTimer final : public PlatformTimer {
 public:
  QtTimer(std::chrono::milliseconds period, std::function<void()> expired) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, [expired = std::move(expired)] {
      const auto handler = expired;  // the timer may go in it
      Platform::Current().Dispatch(handler);
    });
    timer_.start(period);
  }

 private:
  QTimer timer_;
};

/// Takes over when the desktop asks the program to quit. Qt would close the windows, and stop at one that refuses.
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

// The system's allocator would learn from the first large reply to keep blocks of up to 32 MB in its heap, between
// others that live on, so that the heap grows with every further one. Blocks of this size go back to the system at
// once.
void ReturnLargeBlocks() {
  constexpr int largeBlock = 4 << 20;
  mallopt(M_MMAP_THRESHOLD, largeBlock);
  mallopt(M_TRIM_THRESHOLD, 2 * largeBlock);
}

}  // namespace

QtPlatform::QtPlatform(int& argumentCount, char** arguments)
    : application_(std::make_unique<QApplication>(argumentCount, arguments)) {
  ReturnLargeBlocks();
  QApplication::setApplicationName("Corvane");
  QApplication::setDesktopFileName("corvane");
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());
  DescribeViews();
  sessionWatch_ = std::make_unique<SessionWatch>([this] { EndWithSession(); });
}

QtPlatform::~QtPlatform() {
  CloseWindows();
  closedViews_.clear();
}

std::unique_ptr<HTTPTransfer> QtPlatform::StartTransfer(HTTPRequest request, HTTPTransferEvents& events) {
  const std::string proxy = ProxyFor(request.URL);
  return transfers_.Start(std::move(request), proxy, events);
}

// A call that is made while a dialog stands runs the loop on top of that dialog's own. It can end before the calls
// under it only if it shows what comes before its own dialog as well.
DialogButton QtPlatform::ShowDialog(const MessageDialog& dialog) {
  AskedDialog asked{dialog};
  dialogs_.push_back(&asked);
  ++nestedLoops_;
  while (!quitting_ && !asked.HasEnded) {
    if (dialogStands_) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } else {
      ShowNextDialog();
    }
  }
  std::erase(dialogs_, &asked);
  --nestedLoops_;
  DropClosedViewsLater();
  return asked.Pressed;
}

void QtPlatform::ShowNextDialog() {
  AskedDialog& next = *dialogs_.front();
  DialogBox box(next.Dialog);
  // The one after it may come as soon as this one is gone, even if code on the stack keeps exec() from returning.
  QObject::connect(&box, &QDialog::finished, [&] {
    dialogStands_ = false;
    next.HasEnded = true;
    next.Pressed = box.Pressed();
    std::erase(dialogs_, &next);
  });
  dialogStands_ = true;
  box.exec();
  dialogStands_ = false;
}

void QtPlatform::RunEventsUntil(const std::function<bool()>& isDone) {
  ++nestedLoops_;
  while (!quitting_ && !isDone()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  --nestedLoops_;
  DropClosedViewsLater();
}

void QtPlatform::RunDueEvents() {
  ++nestedLoops_;
  QCoreApplication::processEvents();
  --nestedLoops_;
  DropClosedViewsLater();
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

std::optional<Size> QtPlatform::SizeOfPicture(std::span<const std::byte> encoded) { return SizeOf(encoded); }

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

// Every window is told as if the user closed it, but none can refuse, and nobody is asked anything any more.
void QtPlatform::EndWithSession() {
  quitting_ = true;
  auto windows = OpenWindows();
  std::ranges::reverse(windows);
  for (const auto& window : windows) {
    Dispatch([&] { window->CloseAsUser(); });
    Dispatch([&] { window->Close(); });
  }
  Quit(EXIT_SUCCESS);
}

FolderItem QtPlatform::ApplicationDataFolder() const { return Folder(QStandardPaths::GenericDataLocation); }

FolderItem QtPlatform::DesktopFolder() const { return Folder(QStandardPaths::DesktopLocation); }

void QtPlatform::Present(Window& window) {
  views_.push_back(std::make_unique<QtWindow>(window.shared_from_this()));
  views_.back()->Appear();
}

void QtPlatform::BringToFront(Window& window) {
  for (const auto& view : views_) {
    if (view->Shows(window)) view->ComeToFront();
  }
}

void QtPlatform::Withdraw(Window& window) {
  const auto view = std::find_if(views_.begin(), views_.end(), [&](const auto& shown) { return shown->Shows(window); });
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
