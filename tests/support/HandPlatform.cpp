#include "tests/support/HandPlatform.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "toolkit/Window.h"

namespace {

/// The program's handle of a request, process or timer.
template <typename Interface, typename Thing>
class Held : public Interface {
 public:
  explicit Held(std::shared_ptr<Thing> thing) : thing_(std::move(thing)) {}
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() override { thing_->LetGo(); }

 protected:
  std::shared_ptr<Thing> thing_;
};

HandPlatform& Hand() { return dynamic_cast<HandPlatform&>(toolkit::Platform::Current()); }

using HandTimer = Held<toolkit::PlatformTimer, SetTimer>;

struct HandTransfer final : Held<toolkit::HTTPTransfer, SentRequest> {
  using Held::Held;
  void Abort() override { thing_->Abort(); }
};

struct HandProcess final : Held<toolkit::ChildProcess, StartedProcess> {
  using Held::Held;
  void Kill() override { thing_->IsKilled = true; }
};

}  // namespace

void SentRequest::Reply(int status, std::string_view body) {
  BeginReply(status, {}, body.size());
  if (!body.empty()) ReplyPart(body);
  EndReply();
}

void SentRequest::BeginReply(int status, toolkit::HTTPHeaders headers, std::optional<std::uint64_t> length) {
  Tell([=](auto& events) { events.HeadersReceived(status, headers, length); });
}

void SentRequest::ReplyPart(std::string_view bytes) {
  Tell([body = std::make_shared<const std::string>(bytes)](auto& events) { events.BodyReceived(*body); });
}

void SentRequest::EndReply() {
  TellEnd([](auto& events) { events.Finished(); });
}

void SentRequest::Fail(toolkit::TransferFault fault) {
  const std::size_t host = Request.URL.find("://") + 3;
  const toolkit::TransferFailure failure{
      .Fault = fault, .Host = Request.URL.substr(host, Request.URL.find(':', host) - host), .Port = 1701, .Detail = ""};
  TellEnd([=](auto& events) { events.Failed(failure); });
}

void SentRequest::Tell(const Telling& telling) {
  Hand().Happen([alive = shared_from_this(), telling] {
    if (alive->events_ != nullptr) telling(*alive->events_);
  });
}

void SentRequest::TellEnd(const Telling& telling) {
  isRunning_ = false;
  Hand().Happen([alive = shared_from_this(), telling] {
    if (auto* events = std::exchange(alive->events_, nullptr)) telling(*events);
  });
}

void StartedProcess::End(int exitCode) {
  Hand().Happen([alive = shared_from_this(), exitCode] {
    if (const auto tell = std::exchange(alive->Ended, nullptr)) tell({.ExitCode = exitCode, .Output = ""});
  });
}

HandPlatform::HandPlatform()
    : Platform({.Name = "Hand-run", .Id = "hand-run"}),
      folder_(toolkit::MakeTemporaryFolder(toolkit::FolderItem(std::filesystem::temp_directory_path()))) {
  ApplicationDataFolder().CreateAsFolder();
  DesktopFolder().CreateAsFolder();
}

HandPlatform::~HandPlatform() {
  CloseWindows();
  std::error_code ignored;
  std::filesystem::remove_all(folder_.Path(), ignored);
}

std::unique_ptr<toolkit::HTTPTransfer> HandPlatform::StartTransfer(toolkit::HTTPRequest request,
                                                                   toolkit::HTTPTransferEvents& events) {
  Requests.push_back(std::make_shared<SentRequest>(std::move(request), events));
  return std::make_unique<HandTransfer>(Requests.back());
}

void HandPlatform::Happen(std::function<void()> event) {
  WhenFree(std::move(event));
  while (HasWaitingEvents() && !WaitsForUser()) RunNextEvent();
}

toolkit::DialogButton HandPlatform::AskUser(const toolkit::MessageDialog& dialog, const toolkit::Window* owner) {
  Messages.push_back(dialog.Message);
  LastDialog = dialog;
  Owners.push_back(owner);
  if (const auto meanwhile = std::exchange(WhileMessageStands, nullptr)) meanwhile();
  return Quits.empty() ? Answer : toolkit::DialogButton::Cancel;
}

void HandPlatform::RunEventsUntil(const std::function<bool()>& isDone) {
  constexpr int mostRounds = 100'000;
  for (int round = 0; !isDone() && Quits.empty(); ++round) {
    if (round == mostRounds) throw std::logic_error("The program waits for something that the test never ends.");
    if (HasWaitingEvents() && !WaitsForUser()) {
      RunNextEvent();
    } else if (WhileWaiting) {
      Dispatch(WhileWaiting);
    } else {
      throw std::logic_error("The program waits for something that never happens.");
    }
  }
}

bool HandPlatform::RunDueEvents() {
  RunNextEvent();
  if (const auto meanwhile = std::exchange(DuringBreak, nullptr)) Dispatch(meanwhile);
  return Quits.empty();
}

std::unique_ptr<toolkit::PlatformTimer> HandPlatform::StartTimer(std::chrono::milliseconds period,
                                                                 std::function<void()> expired) {
  timers_.push_back(std::make_shared<SetTimer>(SetTimer{.Due = CountedTime() + period, .Expired = std::move(expired)}));
  return std::make_unique<HandTimer>(timers_.back());
}

std::unique_ptr<toolkit::ChildProcess> HandPlatform::StartProcess(const std::string& commandLine,
                                                                  std::function<void(toolkit::ProcessEnd)> ended) {
  Processes.push_back(std::make_shared<StartedProcess>());
  Processes.back()->CommandLine = commandLine;
  Processes.back()->Ended = std::move(ended);
  return std::make_unique<HandProcess>(Processes.back());
}

void HandPlatform::Advance(std::chrono::milliseconds time) {
  now_ += time;
  const auto set = timers_;
  for (const auto& timer : set) {
    if (timer->Due > CountedTime()) continue;
    Happen([timer] {
      if (const auto expired = std::exchange(timer->Expired, nullptr)) expired();
    });
  }
  std::erase_if(timers_, [](const auto& timer) { return !timer->Expired; });
}
