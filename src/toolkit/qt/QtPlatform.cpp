#include "toolkit/qt/QtPlatform.h"

#include <algorithm>

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
#include "toolkit/qt/ConnectionPool.h"
#include "toolkit/qt/DialogBox.h"
#include "toolkit/qt/QtPicture.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtTransfer.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {
namespace {

QIcon ProgramIcon() { return {Decode(*OpenPictureResource("corvane"))}; }

FolderItem Folder(QStandardPaths::StandardLocation location) {
  return FolderItem(FromQt(QStandardPaths::writableLocation(location)));
}

}  // namespace

QtPlatform::QtPlatform(int& argumentCount, char** arguments)
    : application_(std::make_unique<QApplication>(argumentCount, arguments)) {
  QApplication::setApplicationName("Corvane");
  QApplication::setDesktopFileName("corvane");
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ProgramIcon());
}

QtPlatform::~QtPlatform() {
  ForgetWindows();
  closedViews_.clear();
}

std::unique_ptr<HTTPTransfer> QtPlatform::StartTransfer(HTTPRequest request, HTTPTransferEvents& events) {
  if (!connections_) connections_ = std::make_unique<ConnectionPool>();
  return std::make_unique<QtTransfer>(*connections_, std::move(request), events);
}

DialogButton QtPlatform::ShowDialog(const MessageDialog& dialog) {
  const unsigned ticket = ++lastTicket_;
  dialogs_.push_back(ticket);
  WaitForTurn(ticket);
  DialogButton pressed = DialogButton::Cancel;
  if (!quitting_) {
    DialogBox box(dialog);
    // The next one may come as soon as this one is gone, even if code on the stack keeps exec() from returning.
    QObject::connect(&box, &QDialog::finished, [this, ticket] { std::erase(dialogs_, ticket); });
    box.exec();
    pressed = box.Pressed();
  }
  std::erase(dialogs_, ticket);
  DropClosedViews();
  return pressed;
}

bool QtPlatform::OpenURL(const std::string& url) { return QDesktopServices::openUrl(QUrl(ToQt(url))); }

// A dialog that is raised while another stands runs the loop itself, on top of the other's, until its turn comes.
void QtPlatform::WaitForTurn(unsigned ticket) {
  while (!quitting_ && dialogs_.front() != ticket) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

int QtPlatform::RunLoop(const std::function<void()>& start) {
  QTimer::singleShot(0, [this, &start] { Dispatch(start); });
  return QApplication::exec();
}

void QtPlatform::Quit(int status) {
  quitting_ = true;
  QApplication::exit(status);
}

FolderItem QtPlatform::ApplicationDataFolder() const { return Folder(QStandardPaths::GenericDataLocation); }

FolderItem QtPlatform::DesktopFolder() const { return Folder(QStandardPaths::DesktopLocation); }

void QtPlatform::Present(Window& window) {
  views_.push_back(std::make_unique<QtWindow>(window.shared_from_this()));
  views_.back()->show();
}

void QtPlatform::BringToFront(Window& window) {
  for (const auto& view : views_) {
    if (!view->Shows(window)) continue;
    view->raise();
    view->activateWindow();
  }
}

void QtPlatform::Withdraw(Window& window) {
  const auto view = std::find_if(views_.begin(), views_.end(), [&](const auto& shown) { return shown->Shows(window); });
  if (view == views_.end()) return;
  (*view)->hide();
  closedViews_.push_back(std::move(*view));
  views_.erase(view);
  QTimer::singleShot(0, application_.get(), [this] { DropClosedViews(); });
}

void QtPlatform::DropClosedViews() {
  if (dialogs_.empty()) closedViews_.clear();
}

}  // namespace toolkit::qt
