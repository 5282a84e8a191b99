#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/Platform.h"

/// A request that the program sent, to be answered by the test. Events of a transfer that has ended, or that the
/// program has released, are lost.
class SentRequest final : public std::enable_shared_from_this<SentRequest> {
 public:
  SentRequest(toolkit::HTTPRequest request, toolkit::HTTPTransferEvents& events)
      : Request(std::move(request)), events_(&events) {}

  const toolkit::HTTPRequest Request;
  /// Whether it has neither ended nor been aborted. It continues when the program only releases the transfer.
  [[nodiscard]] bool IsRunning() const { return isRunning_; }
  /// A whole reply.
  void Reply(int status, std::string_view body);
  /// A reply in pieces: these three, the second as often as wanted.
  void BeginReply(int status, toolkit::HTTPHeaders headers = {}, std::optional<std::uint64_t> length = {});
  void ReplyPart(std::string_view bytes);
  void EndReply();
  /// No reply, or no more of it. The failure names the host of the request and port 1701.
  void Fail(toolkit::TransferFault fault);
  /// For the platform: the program has released the transfer, or aborted it.
  void LetGo() { events_ = nullptr; }
  void Abort() { isRunning_ = false, LetGo(); }

 private:
  using Telling = std::function<void(toolkit::HTTPTransferEvents&)>;
  void Tell(const Telling& telling);
  void TellEnd(const Telling& telling);

  toolkit::HTTPTransferEvents* events_;
  bool isRunning_ = true;
};

/// A command line that the program passed to the shell, to be ended by the test.
struct StartedProcess final : std::enable_shared_from_this<StartedProcess> {
  std::string CommandLine;
  bool IsKilled = false;
  /// Notifies the program, unless it has released the process.
  void End(int exitCode);
  void LetGo() { Ended = nullptr; }
  std::function<void(toolkit::ProcessEnd)> Ended;
};

/// A timer of the program that has not expired. It is due by the platform's counted time.
struct SetTimer {
  std::chrono::milliseconds Due;
  std::function<void()> Expired;
  void LetGo() { Expired = nullptr; }
};

/// A platform for tests: it records what the program requests, and the test triggers every event. Its folders are real
/// and initially empty, and are removed at the end.
class HandPlatform final : public toolkit::Platform {
 public:
  HandPlatform();
  ~HandPlatform() override;

  /// All requests ever sent, in order.
  std::vector<std::shared_ptr<SentRequest>> Requests;
  [[nodiscard]] SentRequest& LastRequest() const { return *Requests.at(Requests.size() - 1); }
  /// The messages of all dialogs, in order, and the last dialog.
  std::vector<std::string> Messages;
  toolkit::MessageDialog LastDialog;
  /// The windows that the dialogs belonged to, in order.
  std::vector<const toolkit::Window*> Owners;
  /// The button that ends each dialog.
  toolkit::DialogButton Answer = toolkit::DialogButton::Action;
  /// Called once, while the next dialog is open, and in the next RunDueEvents().
  std::function<void()> WhileMessageStands;
  std::function<void()> DuringBreak;
  /// Runs the handler at once, or after the handler that opened a dialog has returned. Without an argument, runs only
  /// the events that are queued.
  void Happen(std::function<void()> event = [] {});
  /// The addresses passed to OpenURL().
  std::vector<std::string> OpenedURLs;
  /// The statuses passed to Quit().
  std::vector<int> Quits;
  /// Called in each round of RunEventsUntil(); without it, a wait fails the test.
  std::function<void()> WhileWaiting;
  /// Advances the clock, and lets every timer expire that is then due.
  void Advance(std::chrono::milliseconds time);
  /// All processes ever started, in order.
  std::vector<std::shared_ptr<StartedProcess>> Processes;

  std::unique_ptr<toolkit::HTTPTransfer> StartTransfer(toolkit::HTTPRequest request,
                                                       toolkit::HTTPTransferEvents& events) override;
  void RunEventsUntil(const std::function<bool()>& isDone) override;
  bool RunDueEvents() override;
  std::unique_ptr<toolkit::PlatformTimer> StartTimer(std::chrono::milliseconds period,
                                                     std::function<void()> expired) override;
  std::unique_ptr<toolkit::ChildProcess> StartProcess(const std::string& commandLine,
                                                      std::function<void(toolkit::ProcessEnd)> ended) override;
  [[nodiscard]] std::chrono::milliseconds Uptime() const override { return now_; }
  void TrustAuthority(std::string_view /*certificate*/) override {}
  std::optional<toolkit::Pixels> DecodePicture(std::string /*encoded*/,
                                               const toolkit::StillWanted& /*wanted*/) override {
    return std::nullopt;
  }
  std::optional<std::string> Translation(const std::string& /*key*/, const std::string& /*language*/) override {
    return std::nullopt;
  }
  bool OpenURL(const std::string& url) override { return OpenedURLs.push_back(url), true; }
  int RunLoop(const std::function<void()>& /*start*/) override { return 0; }
  void Quit(int status) override { Quits.push_back(status); }
  [[nodiscard]] toolkit::FolderItem ApplicationDataFolder() const override { return folder_.Child("data"); }
  [[nodiscard]] toolkit::FolderItem DesktopFolder() const override { return folder_.Child("desktop"); }
  [[nodiscard]] toolkit::FolderItem CacheFolder() const override { return folder_.Child("cache"); }

 protected:
  void Present(toolkit::Window&) override {}
  void BringToFront(toolkit::Window&) override {}
  void Withdraw(toolkit::Window&) override {}
  toolkit::DialogButton AskUser(const toolkit::MessageDialog& dialog, const toolkit::Window* owner) override;
  void RunNextEventLater() override {}

 private:
  toolkit::FolderItem folder_;
  std::chrono::milliseconds now_{0};
  std::vector<std::shared_ptr<SetTimer>> timers_;
};
