#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/Platform.h"

/// A request that the program sent, and the hand that answers it. What is told to a transfer that has ended or was
/// abandoned is lost, as on a real network.
class SentRequest {
 public:
  SentRequest(toolkit::HTTPRequest request, toolkit::HTTPTransferEvents& events)
      : Request(std::move(request)), events_(&events) {}

  const toolkit::HTTPRequest Request;
  [[nodiscard]] bool IsRunning() const { return events_ != nullptr; }
  /// Whether the program let go of the transfer before it ended.
  [[nodiscard]] bool IsAbandoned() const { return abandoned_; }

  /// A whole reply.
  void Reply(int status, std::string_view body);
  /// A reply in pieces: these three, the second as often as wanted.
  void BeginReply(int status, toolkit::HTTPHeaders headers = {}, std::optional<std::uint64_t> length = {});
  void ReplyPart(std::string_view bytes) {
    Tell([bytes](auto& events) { events.BodyReceived(bytes); });
  }
  void EndReply() {
    TellEnd([](auto& events) { events.Finished(); });
  }
  /// No reply, or no more of it. The failure names host and port of the request, which must have both.
  void Fail(toolkit::TransferFault fault);
  /// For the platform: the program let go of the transfer.
  void Abandon();

 private:
  void Tell(const std::function<void(toolkit::HTTPTransferEvents&)>& telling) const;
  void TellEnd(const std::function<void(toolkit::HTTPTransferEvents&)>& telling);

  toolkit::HTTPTransferEvents* events_;
  bool abandoned_ = false;
};

/// A platform without screen, network or time: what it is asked for is written down here, and the test plays the world.
/// Its folders are real, empty at first, and gone afterwards.
class HandPlatform final : public toolkit::Platform {
 public:
  HandPlatform();
  ~HandPlatform() override;

  /// All requests ever sent, in order.
  std::vector<std::shared_ptr<SentRequest>> Requests;
  [[nodiscard]] SentRequest& LastRequest() const { return *Requests.at(Requests.size() - 1); }
  /// The messages of all dialogs, in order.
  std::vector<std::string> Messages;
  /// The dialog that was shown last.
  toolkit::MessageDialog LastDialog;
  /// How the next dialogs are answered, the first one first; further ones with the action button.
  std::deque<toolkit::DialogButton> Answers;
  /// The addresses that were to be opened, and whether the desktop can.
  std::vector<std::string> OpenedURLs;
  bool HasBrowser = true;
  /// What happens while the next dialog stands; forgotten then.
  std::function<void()> WhileMessageStands;
  /// The statuses that the program was told to quit with.
  std::vector<int> Quits;
  /// "present", "front" or "withdraw", and the title of the window.
  std::vector<std::string> WindowLog;
  /// Looks at each window in the state in which it comes on the screen.
  std::function<void(toolkit::Window&)> WhenPresented;
  /// What the world does in each round of a wait that the program makes; without it, a wait is a fault of the test.
  std::function<void()> WhileWaiting;
  /// The translations that there are, by language, a blank and the key.
  std::map<std::string, std::string> Translations;
  /// What every picture measures; nothing makes all pictures unreadable.
  std::optional<toolkit::Size> PictureSize;
  /// Runs in RunLoop(), after what was posted before.
  void Post(std::function<void()> work) { posted_.push_back(std::move(work)); }

  std::unique_ptr<toolkit::HTTPTransfer> StartTransfer(toolkit::HTTPRequest request,
                                                       toolkit::HTTPTransferEvents& events) override;
  toolkit::DialogButton ShowDialog(const toolkit::MessageDialog& dialog) override;
  void RunEventsUntil(const std::function<bool()>& isDone) override;
  void RunDueEvents() override {}
  void TrustAuthority(std::string_view /*certificate*/) override {}
  std::optional<toolkit::Size> SizeOfPicture(std::span<const std::byte> /*encoded*/) override { return PictureSize; }
  std::optional<std::string> Translation(const std::string& key, const std::string& language) override;
  bool OpenURL(const std::string& url) override;
  /// Ends when the program quits, or with -1 when there is nothing left to do.
  int RunLoop(const std::function<void()>& start) override;
  void Quit(int status) override { Quits.push_back(status); }
  [[nodiscard]] toolkit::FolderItem ApplicationDataFolder() const override { return folder_.Child("data"); }
  [[nodiscard]] toolkit::FolderItem DesktopFolder() const override { return folder_.Child("desktop"); }

 protected:
  void Present(toolkit::Window& window) override {
    Log("present ", window);
    if (WhenPresented) WhenPresented(window);
  }
  void BringToFront(toolkit::Window& window) override { Log("front ", window); }
  void Withdraw(toolkit::Window& window) override { Log("withdraw ", window); }

 private:
  void Log(const std::string& what, const toolkit::Window& window);

  std::deque<std::function<void()>> posted_;
  toolkit::FolderItem folder_;
};
