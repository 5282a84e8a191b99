#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/FolderItem.h"
#include "toolkit/HTTPTransfer.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/Shell.h"
#include "toolkit/Size.h"
#include "toolkit/Timer.h"

namespace toolkit {

class Window;

/// All that the program asks of the world around it: windows on a screen, an event loop, HTTP, the user's folders.
///
/// There is one platform at a time. It calls back on the event loop only, never from within the call that asked.
class Platform {
 public:
  Platform();
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform();

  /// The one platform. Misuse, and the end of the program, if there is none.
  static Platform& Current();

  /// Puts `window` on the screen and owns it until it is closed. A window that is open already comes to the front.
  void Open(const std::shared_ptr<Window>& window);
  /// Takes `window` off the screen and lets go of it. The program quits with its last window.
  void Close(Window& window);
  /// Closes every window, the last ones to be opened or used first. For the end of the program: does not quit.
  void CloseWindows();
  /// The user, through the desktop, brought `window` to the front.
  void TellActivated(const Window& window);
  /// The open windows, the one at the back first.
  [[nodiscard]] const std::vector<std::shared_ptr<Window>>& OpenWindows() const { return windows_; }

  /// Runs `handler`; an exception that leaves it ends in a message box, and the program goes on.
  void Dispatch(const std::function<void()>& handler);

  /// Sends a request. `events` must outlive the result.
  virtual std::unique_ptr<HTTPTransfer> StartTransfer(HTTPRequest request, HTTPTransferEvents& events) = 0;
  /// Shows a dialog and waits for the button that ends it. Other events run meanwhile. Dialogs stand one at a time, in
  /// the order in which they were asked for.
  virtual DialogButton ShowDialog(const MessageDialog& dialog) = 0;
  /// Runs the event loop until `isDone`, which is asked after each round of events, or until the program quits.
  virtual void RunEventsUntil(const std::function<bool()>& isDone) = 0;
  /// Runs the events that are due, without waiting for any: for the breaks in long work.
  virtual void RunDueEvents() = 0;
  /// Calls `expired` once, after `period`, unless the result goes before. It may go in that call.
  virtual std::unique_ptr<PlatformTimer> StartTimer(std::chrono::milliseconds period,
                                                    std::function<void()> expired) = 0;
  /// Runs a command line in the system's shell, without a terminal, and tells how it ended. The result may go in that
  /// call, or before, and then nothing is told.
  virtual std::unique_ptr<ChildProcess> StartProcess(const std::string& commandLine,
                                                     std::function<void(ProcessEnd)> ended) = 0;
  /// The time since some moment in the past. It never goes backwards.
  [[nodiscard]] virtual std::chrono::milliseconds Uptime() const = 0;
  /// Lets servers show certificates of another authority than those that the system trusts. `certificate` is in PEM.
  virtual void TrustAuthority(std::string_view certificate) = 0;
  /// The size in pixels of a picture in its encoded form, or nothing if it is none that the desktop can show.
  virtual std::optional<Size> SizeOfPicture(std::span<const std::byte> encoded) = 0;
  /// The text for `key` in `language`, an IETF tag, or in the user's languages if that is empty; nothing where the
  /// text in the program serves.
  virtual std::optional<std::string> Translation(const std::string& key, const std::string& language) = 0;
  /// Opens an address in the user's browser. Returns whether the desktop has one.
  virtual bool OpenURL(const std::string& url) = 0;
  /// Runs the event loop, `start` first, until Quit(). Returns the status given there.
  virtual int RunLoop(const std::function<void()>& start) = 0;
  /// Ends the event loop, and every wait inside it, at the next opportunity.
  virtual void Quit(int status) = 0;
  [[nodiscard]] virtual FolderItem ApplicationDataFolder() const = 0;
  [[nodiscard]] virtual FolderItem DesktopFolder() const = 0;

 protected:
  virtual void Present(Window& window) = 0;
  virtual void BringToFront(Window& window) = 0;
  virtual void Withdraw(Window& window) = 0;

 private:
  bool closesAll_ = false;
  std::vector<std::shared_ptr<Window>> windows_;
};

}  // namespace toolkit
