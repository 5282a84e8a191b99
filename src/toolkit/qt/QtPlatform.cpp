#include "toolkit/qt/QtPlatform.h"

#include <algorithm>

#include <QApplication>
#include <QEventLoop>
#include <QIcon>
#include <QPixmap>
#include <QStandardPaths>
#include <QTimer>

#include "resources/Resource.h"
#include "toolkit/Window.h"
#include "toolkit/qt/ConnectionPool.h"
#include "toolkit/qt/MessageBox.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/QtTransfer.h"
#include "toolkit/qt/QtWindow.h"

namespace toolkit::qt {
namespace {

QIcon ProgramIcon() {
  const auto encoded = resources::Find("corvane");
  QPixmap picture;
  picture.loadFromData(reinterpret_cast<const uchar*>(encoded.data()), static_cast<uint>(encoded.size()), "PNG");
  return {picture};
}

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

// A call that is made while a box stands runs the loop on top of that box's own, and can end before the calls under it
// only if it shows what comes before its own text as well.
void QtPlatform::ShowMessage(const std::string& text) {
  const unsigned ticket = ++lastTicket_;
  messages_.emplace(ticket, text);
  ++runningBoxCalls_;
  while (!quitting_ && messages_.contains(ticket)) {
    if (boxStands_) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } else {
      ShowNextBox();
    }
  }
  messages_.erase(ticket);
  --runningBoxCalls_;
  DropClosedViewsLater();
}

void QtPlatform::ShowNextBox() {
  const auto [ticket, text] = *messages_.begin();
  MessageBox box(ToQt(text));
  // The next box may come as soon as this one is gone, even if code on the stack keeps exec() from returning.
  QObject::connect(&box, &QDialog::finished, [this, next = ticket] {
    boxStands_ = false;
    messages_.erase(next);
  });
  boxStands_ = true;
  box.exec();
  boxStands_ = false;
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
  DropClosedViewsLater();
}

void QtPlatform::DropClosedViewsLater() {
  QTimer::singleShot(0, application_.get(), [this] {
    if (runningBoxCalls_ == 0) closedViews_.clear();
  });
}

}  // namespace toolkit::qt
