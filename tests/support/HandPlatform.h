#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/Platform.h"

/// A request that the program sent, and the hand that answers it. What is told to a transfer that has ended, or that
/// nobody holds any more, is lost, as on a real network.
class SentRequest final : public std::enable_shared_from_this<SentRequest> {
 public:
  SentRequest(toolkit::HTTPRequest request, toolkit::HTTPTransferEvents& events)
      : Request(std::move(request)), events_(&events) {}

  const toolkit::HTTPRequest Request;
  /// Whether it has neither ended nor been aborted. It goes on when the program has only let go of it.
  [[nodiscard]] bool IsRunning() const { return isRunning_; }
  /// A whole reply.
  void Reply(int status, std::string_view body);
  /// A reply in pieces: these three, the second as often as wanted.
  void BeginReply(int status, toolkit::HTTPHeaders headers = {}, std::optional<std::uint64_t> length = {});
  void ReplyPart(std::string_view bytes);
  void EndReply();
  /// No reply, or no more of it. The failure names the host of the request and port 1701.
  void Fail(toolkit::TransferFault fault);
  /// For the platform: the program let go of the transfer, or aborted it.
  void LetGo() { events_ = nullptr; }
  void Abort() { isRunning_ = false, LetGo(); }

 private:
  using Telling = std::function<void(toolkit::HTTPTransferEvents&)>;
  void Tell(const Telling& telling);
  void TellEnd(const Telling& telling);

  toolkit::HTTPTransferEvents* events_;
  bool isRunning_ = true;
};

/// A command line that the program gave to the shell, and the hand that ends it.
struct StartedProcess final : std::enable_shared_from_this<StartedProcess> {
  std::string CommandLine;
  bool IsKilled = false;
  /// Tells the program, unless it let go of the process.
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

/// A platform without screen, network or time: what it is asked for is written down here, and the test plays the world.
/// What a test lets happen is an event: its handler runs at once, or when the one that raised a dialog has ended.
/// Its folders are real, empty at first, and gone afterwards.
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
  /// How dialogs are answered.
  toolkit::DialogButton Answer = toolkit::DialogButton::Action;
  /// What happens while the next dialog stands, and in the next break of long work; forgotten then.
  std::function<void()> WhileMessageStands;
  std::function<void()> DuringBreak;
  /// Lets an event happen, after those that wait. The empty one lets only these run: a test calls for it when it has
  /// acted as the user.
  void Happen(std::function<void()> event = [] {});
  /// The addresses that were to be opened.
  std::vector<std::string> OpenedURLs;
  /// The statuses that the program was told to quit with.
  std::vector<int> Quits;
  /// What the world does in each round of a wait that the program makes; without it, a wait is a fault of the test.
  std::function<void()> WhileWaiting;
  /// Lets time pass, and every timer expire whose time comes.
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
