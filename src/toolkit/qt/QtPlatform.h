#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/Platform.h"

class QApplication;

namespace toolkit::qt {

class ConnectionPool;
class QtWindow;

/// The platform on Qt: real windows, one event loop for everything. To be made first in main, and before any window.
class QtPlatform final : public Platform {
 public:
  /// Takes Qt's own options out of the arguments, which must live as long as the platform.
  QtPlatform(int& argumentCount, char** arguments);
  ~QtPlatform() override;

  std::unique_ptr<HTTPTransfer> StartTransfer(HTTPRequest request, HTTPTransferEvents& events) override;
  void ShowMessage(const std::string& text) override;
  int RunLoop(const std::function<void()>& start) override;
  void Quit(int status) override;
  [[nodiscard]] FolderItem ApplicationDataFolder() const override;
  [[nodiscard]] FolderItem DesktopFolder() const override;

 protected:
  void Present(Window& window) override;
  void BringToFront(Window& window) override;
  void Withdraw(Window& window) override;

 private:
  void ShowNextBox();
  void DropClosedViewsLater();

  std::unique_ptr<QApplication> application_;
  std::unique_ptr<ConnectionPool> connections_;
  std::vector<std::unique_ptr<QtWindow>> views_;
  // Views whose window was closed; they may have code on the stack, so they go when no box keeps any there.
  std::vector<std::unique_ptr<QtWindow>> closedViews_;
  // The texts whose box has not been closed yet, by the order in which they came. The first one's box may stand.
  std::map<unsigned, std::string> messages_;
  unsigned lastTicket_ = 0;
  int runningBoxCalls_ = 0;
  bool boxStands_ = false;
  bool quitting_ = false;
};

}  // namespace toolkit::qt
