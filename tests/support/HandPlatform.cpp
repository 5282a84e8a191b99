#include "tests/support/HandPlatform.h"

#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "toolkit/Window.h"

namespace {

class HandTransfer final : public toolkit::HTTPTransfer {
 public:
  explicit HandTransfer(std::shared_ptr<SentRequest> request) : request_(std::move(request)) {}
  HandTransfer(const HandTransfer&) = delete;
  HandTransfer& operator=(const HandTransfer&) = delete;
  ~HandTransfer() override { request_->Abandon(); }

 private:
  std::shared_ptr<SentRequest> request_;
};

toolkit::FolderItem MakeTemporaryFolder() {
  std::string path = (std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").string();
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("No temporary folder can be made at " + path);
  return toolkit::FolderItem(path);
}

}  // namespace

void SentRequest::Reply(int status, std::string_view body) {
  const std::size_t size = Request.Body.size();
  if (size > 0) Tell([size](auto& events) { events.BodySent(size, size); });
  BeginReply(status, {}, body.size());
  if (!body.empty()) ReplyPart(body);
  EndReply();
}

void SentRequest::BeginReply(int status, toolkit::HTTPHeaders headers, std::optional<std::uint64_t> length) {
  Tell([&](auto& events) { events.HeadersReceived(status, std::move(headers), length); });
}

void SentRequest::Fail(toolkit::TransferFault fault) {
  const std::size_t host = Request.URL.find("://") + 3;
  const std::size_t port = Request.URL.find(':', host);
  toolkit::TransferFailure failure;
  failure.Fault = fault;
  failure.Host = Request.URL.substr(host, port - host);
  failure.Port = std::stoi(Request.URL.substr(port + 1));
  TellEnd([&](auto& events) { events.Failed(failure); });
}

void SentRequest::Abandon() {
  if (std::exchange(events_, nullptr) != nullptr) abandoned_ = true;
}

void SentRequest::Tell(const std::function<void(toolkit::HTTPTransferEvents&)>& telling) const {
  if (events_ != nullptr) toolkit::Platform::Current().Dispatch([&] { telling(*events_); });
}

void SentRequest::TellEnd(const std::function<void(toolkit::HTTPTransferEvents&)>& telling) {
  auto* const events = std::exchange(events_, nullptr);
  if (events != nullptr) toolkit::Platform::Current().Dispatch([&] { telling(*events); });
}

HandPlatform::HandPlatform() : folder_(MakeTemporaryFolder()) {
  ApplicationDataFolder().CreateAsFolder();
  DesktopFolder().CreateAsFolder();
}

HandPlatform::~HandPlatform() {
  ForgetWindows();
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
  if (Answers.empty()) return toolkit::DialogButton::Action;
  const toolkit::DialogButton answer = Answers.front();
  Answers.pop_front();
  return answer;
}

void HandPlatform::RunEventsUntil(const std::function<bool()>& isDone) {
  while (!isDone() && Quits.empty()) {
    if (!WhileWaiting) throw std::logic_error("The program waits for something that never happens.");
    Dispatch(WhileWaiting);
  }
}

std::optional<std::string> HandPlatform::Translation(const std::string& key, const std::string& language) {
  const auto text = Translations.find(language + " " + key);
  return text == Translations.end() ? std::nullopt : std::optional(text->second);
}

bool HandPlatform::OpenURL(const std::string& url) {
  OpenedURLs.push_back(url);
  return HasBrowser;
}

int HandPlatform::RunLoop(const std::function<void()>& start) {
  Dispatch(start);
  while (Quits.empty() && !posted_.empty()) {
    const auto work = std::move(posted_.front());
    posted_.pop_front();
    Dispatch(work);
  }
  return Quits.empty() ? -1 : Quits.back();
}

void HandPlatform::Log(const std::string& what, const toolkit::Window& window) {
  WindowLog.push_back(what + window.Title());
}
