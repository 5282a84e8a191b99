#include "tests/support/HandPlatform.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "toolkit/Window.h"

namespace {

constexpr int portOfHTTPS = 443;

class HandTransfer final : public toolkit::HTTPTransfer {
 public:
  explicit HandTransfer(std::shared_ptr<SentRequest> request) : request_(std::move(request)) {}
  HandTransfer(const HandTransfer&) = delete;
  HandTransfer& operator=(const HandTransfer&) = delete;
  ~HandTransfer() override { request_->Abandon(); }

 private:
  std::shared_ptr<SentRequest> request_;
};

toolkit::TransferFailure FailureOf(std::string_view url) {
  toolkit::TransferFailure failure;
  url.remove_prefix(url.find("://") + 3);
  const std::string_view authority = url.substr(0, url.find('/'));
  const std::size_t colon = std::min(authority.rfind(':'), authority.size());
  failure.Host = authority.substr(0, colon);
  failure.Port = portOfHTTPS;
  const std::string_view port = authority.substr(std::min(colon + 1, authority.size()));
  std::from_chars(port.data(), port.data() + port.size(), failure.Port);
  return failure;
}

std::filesystem::path MakeTemporaryFolder() {
  std::string path = (std::filesystem::temp_directory_path() / "corvane-test-XXXXXX").string();
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("No temporary folder can be made at " + path);
  return path;
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

void SentRequest::ReplyPart(std::string_view bytes) {
  Tell([bytes](auto& events) { events.BodyReceived(bytes); });
}

void SentRequest::EndReply() {
  TellEnd([](auto& events) { events.Finished(); });
}

void SentRequest::Fail(toolkit::TransferFault fault, std::string_view detail) {
  toolkit::TransferFailure failure = FailureOf(Request.URL);
  failure.Fault = fault;
  failure.Detail = detail;
  TellEnd([&](auto& events) { events.Failed(failure); });
}

void SentRequest::Abandon() { abandoned_ = std::exchange(events_, nullptr) != nullptr; }

void SentRequest::Tell(const Telling& telling) const {
  if (events_ == nullptr) return;
  toolkit::Platform::Current().Dispatch([&] { telling(*events_); });
}

void SentRequest::TellEnd(const Telling& telling) {
  auto* const events = std::exchange(events_, nullptr);
  if (events == nullptr) return;
  toolkit::Platform::Current().Dispatch([&] { telling(*events); });
}

HandPlatform::HandPlatform() : folder_(MakeTemporaryFolder()) {
  std::filesystem::create_directory(ApplicationDataFolder().Path());
  std::filesystem::create_directory(DesktopFolder().Path());
}

HandPlatform::~HandPlatform() {
  ForgetWindows();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
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
  return Quits.empty() ? NeverQuit : Quits.back();
}

toolkit::FolderItem HandPlatform::ApplicationDataFolder() const { return toolkit::FolderItem(folder_ / "data"); }

toolkit::FolderItem HandPlatform::DesktopFolder() const { return toolkit::FolderItem(folder_ / "desktop"); }

void HandPlatform::Present(toolkit::Window& window) {
  WindowLog.push_back("present " + window.Title());
  if (WhenPresented) WhenPresented(window);
}

void HandPlatform::BringToFront(toolkit::Window& window) { WindowLog.push_back("front " + window.Title()); }

void HandPlatform::Withdraw(toolkit::Window& window) { WindowLog.push_back("withdraw " + window.Title()); }
