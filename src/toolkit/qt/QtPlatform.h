#pragma once

#include <memory>
#include <vector>

#include "toolkit/Platform.h"
#include "toolkit/http/TransferPool.h"
#include "toolkit/qt/QtEventLoop.h"

class QApplication;
class QObject;

namespace toolkit::qt {

class Translations;
class QtWindow;

/// The platform on Qt: real windows, and one event loop for everything. Create it in main before any window.
class QtPlatform final : public Platform {
 public:
  /// Removes Qt's own options from the arguments, which must live as long as the platform.
  QtPlatform(ProgramFacts program, int& argumentCount, char** arguments);
  ~QtPlatform() override;

  std::unique_ptr<HTTPTransfer> StartTransfer(HTTPRequest request, HTTPTransferEvents& events) override;
  void RunEventsUntil(const std::function<bool()>& isDone) override;
  bool RunDueEvents() override;
  std::unique_ptr<PlatformTimer> StartTimer(std::chrono::milliseconds period, std::function<void()> expired) override;
  std::unique_ptr<ChildProcess> StartProcess(const std::string& commandLine,
                                             std::function<void(ProcessEnd)> ended) override;
  [[nodiscard]] std::chrono::milliseconds Uptime() const override;
  void TrustAuthority(std::string_view certificate) override;
  std::optional<Pixels> DecodePicture(std::string encoded, const StillWanted& wanted) override;
  std::optional<std::string> Translation(const std::string& key, const std::string& language) override;
  bool OpenURL(const std::string& url) override;
  int RunLoop(const std::function<void()>& start) override;
  void Quit(int status) override;
  [[nodiscard]] FolderItem ApplicationDataFolder() const override;
  [[nodiscard]] FolderItem DesktopFolder() const override;
  [[nodiscard]] FolderItem CacheFolder() const override;

 protected:
  void Present(Window& window) override;
  void BringToFront(Window& window) override;
  void Withdraw(Window& window) override;
  DialogButton AskUser(const MessageDialog& dialog, const Window* owner) override;
  void RunNextEventLater() override;

 private:
  [[nodiscard]] QtWindow* ViewOf(const Window& window) const;
  void DropClosedViewsLater();

  std::unique_ptr<QApplication> application_;
  std::unique_ptr<QObject> sessionWatch_;
  QtEventLoop loop_;
  http::TransferPool transfers_{loop_};
  std::unique_ptr<Translations> translations_;
  std::vector<std::unique_ptr<QtWindow>> views_;
  // Views of closed windows. Their code may be on the call stack, so they are destroyed when no nested event loop runs.
  std::vector<std::unique_ptr<QtWindow>> closedViews_;
  int nestedLoops_ = 0;
  bool quitting_ = false;
};

}  // namespace toolkit::qt
