#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "toolkit/FolderItem.h"
#include "toolkit/HTTPTransfer.h"
#include "toolkit/MessageDialog.h"
#include "toolkit/Pixels.h"
#include "toolkit/ProgramFacts.h"
#include "toolkit/Shell.h"
#include "toolkit/StillWanted.h"
#include "toolkit/Timer.h"

namespace toolkit {

class Window;

/// The interface to the outside world: windows on a screen, an event loop, HTTP, the user's folders.
///
/// There is one platform at a time. It calls back on the event loop only, never from within the call that asked, and
/// never while a dialog is open: such events are queued in their order until the handler that opened the dialog has
/// returned, or waits in RunEventsUntil() or RunDueEvents(). Only these two run other handlers while they wait.
class Platform {
 public:
  explicit Platform(ProgramFacts program);
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform();

  /// The one platform. Aborts if there is none.
  static Platform& Current();

  [[nodiscard]] const ProgramFacts& Program() const { return program_; }

  /// Shows `window` and owns it until it is closed. A window that is already open is brought to the front.
  void Open(const std::shared_ptr<Window>& window);
  /// Hides `window` and releases it. The program quits with its last window.
  void Close(Window& window);
  /// Closes every window, the most recently used first. For the end of the program: does not quit.
  void CloseWindows();
  /// The desktop has brought `window` to the front.
  void TellActivated(const Window& window);
  /// The open windows, the least recently used first.
  [[nodiscard]] const std::vector<std::shared_ptr<Window>>& OpenWindows() const { return windows_; }

  /// The desktop session ends: quits, and closes every window as the user would, the last one first, even if it
  /// refuses. An open dialog is cancelled, and no further one is shown.
  void EndSession();

  /// Calls `handler`; an exception that it throws is shown in a message box, and the program continues.
  void Dispatch(const std::function<void()>& handler);
  /// Passes `handler` to Dispatch(), at once unless a dialog is open or other events are queued, else after those. It
  /// must not refer to objects that may be destroyed by then.
  void WhenFree(std::function<void()> handler);
  /// Whether a dialog is open, so that the user can act on nothing else.
  [[nodiscard]] static bool WaitsForUser();
  /// Shows a dialog and waits for the button that ends it, Cancel if the program quits. It belongs to the window whose
  /// handler is running. Windows are painted and transfers continue meanwhile, but no handler starts.
  DialogButton ShowDialog(const MessageDialog& dialog);
  /// Makes dialogs belong to `window`. Returns the previous window. For HandlerTurn.
  std::weak_ptr<Window> SetAsker(std::weak_ptr<Window> window) { return std::exchange(asker_, std::move(window)); }
  /// Uptime() without the time in which dialogs were open. The clock of all time-outs.
  [[nodiscard]] std::chrono::milliseconds CountedTime() const;

  /// Sends a request. `events` must outlive the result.
  virtual std::unique_ptr<HTTPTransfer> StartTransfer(HTTPRequest request, HTTPTransferEvents& events) = 0;
  /// Runs the event loop until `isDone`, which is called after each round of events, returns true or the program quits.
  /// Other handlers run meanwhile.
  virtual void RunEventsUntil(const std::function<bool()>& isDone) = 0;
  /// Handles the pending events without waiting for further ones, in breaks of long work. Returns false once the
  /// program quits.
  virtual bool RunDueEvents() = 0;
  /// Calls `expired` once, after `period` of CountedTime(), unless the result is destroyed before. `expired` may
  /// destroy it.
  virtual std::unique_ptr<PlatformTimer> StartTimer(std::chrono::milliseconds period,
                                                    std::function<void()> expired) = 0;
  /// Runs a command line in the system's shell, without a terminal and without the variables of the dynamic loader
  /// (LD_*), and calls `ended` when it has ended. Destroying the result, before or in that call, is allowed and
  /// suppresses the call.
  virtual std::unique_ptr<ChildProcess> StartProcess(const std::string& commandLine,
                                                     std::function<void(ProcessEnd)> ended) = 0;
  /// The time since a fixed moment in the past. Monotonic.
  [[nodiscard]] virtual std::chrono::milliseconds Uptime() const = 0;
  /// Trusts server certificates of another authority in addition to the system's. `certificate` is in PEM.
  virtual void TrustAuthority(std::string_view certificate) = 0;
  /// Decodes a picture of untrusted origin into at most Picture::mostPixels pixels; std::nullopt if it cannot be
  /// decoded. Runs the event loop until it is decoded or no longer wanted.
  virtual std::optional<Pixels> DecodePicture(std::string encoded, const StillWanted& wanted) = 0;
  /// The text for `key` in `language`, an IETF tag, or in the user's languages if that is empty; std::nullopt if the
  /// default text is to be used.
  virtual std::optional<std::string> Translation(const std::string& key, const std::string& language) = 0;
  /// Opens an address in the user's browser. Returns whether the desktop has one.
  virtual bool OpenURL(const std::string& url) = 0;
  /// Runs the event loop, starting with `start`, until Quit(). Returns the status given there.
  virtual int RunLoop(const std::function<void()>& start) = 0;
  /// Ends the event loop, and every wait inside it, as soon as possible.
  virtual void Quit(int status) = 0;
  [[nodiscard]] virtual FolderItem ApplicationDataFolder() const = 0;
  [[nodiscard]] virtual FolderItem DesktopFolder() const = 0;
  /// The folder for data of this user that programs can create again.
  [[nodiscard]] virtual FolderItem CacheFolder() const = 0;

 protected:
  virtual void Present(Window& window) = 0;
  virtual void BringToFront(Window& window) = 0;
  virtual void Withdraw(Window& window) = 0;
  /// Shows the dialog for ShowDialog(), which handles the other events. `owner` may be nullptr.
  virtual DialogButton AskUser(const MessageDialog& dialog, const Window* owner) = 0;
  /// Lets the event loop call RunNextEvent() once.
  virtual void RunNextEventLater() = 0;
  /// Runs the event that was queued first, if there is one and no dialog is open.
  void RunNextEvent();
  [[nodiscard]] bool HasWaitingEvents() const { return !waitingEvents_.empty(); }
  /// Drops the queued events.
  void DropEvents() { waitingEvents_.clear(); }

 private:
  ProgramFacts program_;
  bool closesAll_ = false;
  bool sessionEnds_ = false;
  std::vector<std::shared_ptr<Window>> windows_;
  std::deque<std::function<void()>> waitingEvents_;
  std::weak_ptr<Window> asker_;
  int dialogs_ = 0;
  std::chrono::milliseconds dialogSince_{0};
  std::chrono::milliseconds dialogTime_{0};
};

}  // namespace toolkit
