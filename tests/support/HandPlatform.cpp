#include "tests/support/HandPlatform.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "toolkit/Window.h"

namespace {

/// What the program holds of a request, process or timer.
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
  Tell(events_, [&](auto& events) { events.HeadersReceived(status, std::move(headers), length); });
}

void SentRequest::ReplyPart(std::string_view bytes) {
  Tell(events_, [&](auto& events) { events.BodyReceived(bytes); });
}

void SentRequest::EndReply() {
  TellEnd([](auto& events) { events.Finished(); });
}

void SentRequest::Fail(toolkit::TransferFault fault) {
  const std::size_t host = Request.URL.find("://") + 3;
  const toolkit::TransferFailure failure{
      .Fault = fault, .Host = Request.URL.substr(host, Request.URL.find(':', host) - host), .Port = 1701, .Detail = ""};
  TellEnd([&](auto& events) { events.Failed(failure); });
}

void SentRequest::TellEnd(const Telling& telling) {
  isRunning_ = false;
  Tell(std::exchange(events_, nullptr), telling);
}

void SentRequest::Tell(toolkit::HTTPTransferEvents* events, const Telling& telling) {
  if (events != nullptr) toolkit::Platform::Current().Dispatch([&] { telling(*events); });
}

HandPlatform::HandPlatform() : folder_(toolkit::MakeTemporaryFolder()) {
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

toolkit::DialogButton HandPlatform::ShowDialog(const toolkit::MessageDialog& dialog) {
  Messages.push_back(dialog.Message);
  LastDialog = dialog;
  if (const auto meanwhile = std::exchange(WhileMessageStands, nullptr)) Dispatch(meanwhile);
  return Answer;
}

void HandPlatform::RunEventsUntil(const std::function<bool()>& isDone) {
  while (!isDone() && Quits.empty()) {
    if (!WhileWaiting) throw std::logic_error("The program waits for something that never happens.");
    Dispatch(WhileWaiting);
  }
}

std::unique_ptr<toolkit::PlatformTimer> HandPlatform::StartTimer(std::chrono::milliseconds period,
                                                                 std::function<void()> expired) {
  timers_.push_back(std::make_shared<SetTimer>(SetTimer{.Due = now_ + period, .Expired = std::move(expired)}));
  return std::make_unique<HandTimer>(timers_.back());
}

std::unique_ptr<toolkit::ChildProcess> HandPlatform::StartProcess(const std::string& commandLine,
                                                                  std::function<void(toolkit::ProcessEnd)> ended) {
  Processes.push_back(std::make_shared<StartedProcess>(
      StartedProcess{.CommandLine = commandLine, .IsKilled = false, .Ended = std::move(ended)}));
  return std::make_unique<HandProcess>(Processes.back());
}

void HandPlatform::Advance(std::chrono::milliseconds time) {
  now_ += time;
  const auto set = timers_;
  for (const auto& timer : set) {
    if (timer->Due > now_) continue;
    if (const auto expired = std::exchange(timer->Expired, nullptr)) Dispatch(expired);
  }
  std::erase_if(timers_, [](const auto& timer) { return !timer->Expired; });
}
