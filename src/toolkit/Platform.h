#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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

/// All that the program asks of the world around it: windows on a screen, an event loop, HTTP, the user's folders.
///
/// There is one platform at a time. It calls back on the event loop only, never from within the call that asked, and
/// never while a dialog stands: what happens meanwhile waits in its order until the handler that asked the user has
/// ended, or waits by RunEventsUntil() or RunDueEvents(). These two are the only waits that run other handlers.
class Platform {
 public:
  explicit Platform(ProgramFacts program);
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform();

  /// The one platform. Misuse, and the end of the program, if there is none.
  static Platform& Current();

  [[nodiscard]] const ProgramFacts& Program() const { return program_; }

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

  /// The desktop session ends: quits, and closes every window as the user does, the last one first, whether or not it
  /// refuses. A dialog that stands is cancelled, and none comes any more.
  void EndSession();

  /// Runs `handler`; an exception that leaves it ends in a message box, and the program goes on.
  void Dispatch(const std::function<void()>& handler);
  /// Runs the handler of an event by Dispatch(), at once if nothing keeps it from that: a dialog, or events that wait
  /// already. It must not rely on what may be gone by then.
  void WhenFree(std::function<void()> handler);
  /// Whether a dialog stands, so that the user can act on nothing else.
  [[nodiscard]] static bool WaitsForUser();
  /// Shows a dialog and waits for the button that ends it, Cancel if the program quits. Windows are painted meanwhile,
  /// and transfers go on, but no handler starts.
  DialogButton ShowDialog(const MessageDialog& dialog);
  /// Uptime() without the time that dialogs have stood. Every time-out counts by it.
  [[nodiscard]] std::chrono::milliseconds CountedTime() const;

  /// Sends a request. `events` must outlive the result.
  virtual std::unique_ptr<HTTPTransfer> StartTransfer(HTTPRequest request, HTTPTransferEvents& events) = 0;
  /// Runs the event loop until `isDone`, which is asked after each round of events, or until the program quits. Other
  /// handlers run meanwhile.
  virtual void RunEventsUntil(const std::function<bool()>& isDone) = 0;
  /// Runs the events that are due and their handlers, without waiting for any: for the breaks in long work. Returns
  /// whether the program goes on, false once it quits.
  virtual bool RunDueEvents() = 0;
  /// Calls `expired` once, after `period` of CountedTime(), unless the result goes before. It may go in that call.
  virtual std::unique_ptr<PlatformTimer> StartTimer(std::chrono::milliseconds period,
                                                    std::function<void()> expired) = 0;
  /// Runs a command line in the system's shell, without a terminal and without what the user's environment has for the
  /// loader of programs (LD_*), and tells how it ended. The result may go in that call, or before, and then nothing is
  /// told.
  virtual std::unique_ptr<ChildProcess> StartProcess(const std::string& commandLine,
                                                     std::function<void(ProcessEnd)> ended) = 0;
  /// The time since some moment in the past. It never goes backwards.
  [[nodiscard]] virtual std::chrono::milliseconds Uptime() const = 0;
  /// Lets servers show certificates of another authority than those that the system trusts. `certificate` is in PEM.
  virtual void TrustAuthority(std::string_view certificate) = 0;
  /// The pixels of a picture that may come from anybody, Picture::MostPixels at most; nothing if it is none that the
  /// desktop can show. Runs the event loop until it is decoded or no longer wanted.
  virtual std::optional<Pixels> DecodePicture(std::string encoded, const StillWanted& wanted) = 0;
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
  /// Where programs keep, for this user, what they can make again.
  [[nodiscard]] virtual FolderItem CacheFolder() const = 0;

 protected:
  virtual void Present(Window& window) = 0;
  virtual void BringToFront(Window& window) = 0;
  virtual void Withdraw(Window& window) = 0;
  /// As ShowDialog(), without care for other events.
  virtual DialogButton AskUser(const MessageDialog& dialog) = 0;
  /// Lets the event loop call RunNextEvent() once.
  virtual void RunNextEventLater() = 0;
  /// Runs the event that has waited longest, if there is one and no dialog stands.
  void RunNextEvent();
  [[nodiscard]] bool HasWaitingEvents() const { return !waitingEvents_.empty(); }
  /// Nothing is to be heard any more of the events that wait.
  void DropEvents() { waitingEvents_.clear(); }

 private:
  ProgramFacts program_;
  bool closesAll_ = false;
  bool sessionEnds_ = false;
  std::vector<std::shared_ptr<Window>> windows_;
  std::deque<std::function<void()>> waitingEvents_;
  int dialogs_ = 0;
  std::chrono::milliseconds dialogSince_{0};
  std::chrono::milliseconds dialogTime_{0};
};

}  // namespace toolkit
