#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/Event.h"
#include "toolkit/HTTPSocket.h"

using testing::ElementsAre;
using toolkit::FolderItem;
using toolkit::HTTPHeaders;
using Text = std::string;

namespace {

constexpr const char* url = "https://srv:8443/file";

Text Read(const FolderItem& file) {
  if (!is_regular_file(file.Path())) return {};
  std::ifstream stream(file.Path(), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Tells of each event as a line; what a handler does about it is up to the test.
class Socket final : public toolkit::HTTPSocket {
 public:
  toolkit::Event<const Text&> Told;

 private:
  void Event_Error(const toolkit::RuntimeException& error) override { Told("error " + error.Message()); }
  void Event_FileReceived(const Text& at, int, const FolderItem& file) override {
    const auto before = std::pair(at, file.Path());
    Told("file " + Read(file));
    EXPECT_EQ(std::pair(at, file.Path()), before) << "arguments that changed in the handler";
  }
  void Event_HeadersReceived(const Text& at, int status) override { Told(at + " " + std::to_string(status)); }
  void Event_PageReceived(const Text& at, int status, Text content) override {
    const auto before = std::pair(at, status);
    Told("page " + content);
    EXPECT_EQ(std::pair(at, status), before) << "arguments that changed in the handler";
  }
  void Event_ReceiveProgress(std::uint64_t received, std::optional<std::uint64_t> total) override {
    Told(std::to_string(received) + " of " + std::to_string(total.value_or(0)));
  }
  void Event_SendProgress(std::uint64_t sent, std::uint64_t total) override {
    Told("sent " + std::to_string(sent) + " of " + std::to_string(total));
  }
};

class HTTPSocketTest : public testing::Test {
 protected:
  HTTPSocketTest() {
    socket.Told = [this](const Text& event) { events.push_back(event); };
  }

  HandPlatform platform;
  std::vector<Text> events;
  Socket socket;
};

}  // namespace

TEST_F(HTTPSocketTest, HeadersStayForTheNextRequestContentDoesNotAndARepliedPieceCountsOnce) {
  socket.RequestHeader("X-One", "1");
  socket.RequestHeader("x-one", "2");
  socket.SetRequestContent("body", "text/plain");
  socket.Send("PUT", url);
  EXPECT_EQ(platform.LastRequest().Request.Headers, (HTTPHeaders{{"X-One", "2"}, {"Content-Type", "text/plain"}}));
  EXPECT_EQ(platform.LastRequest().Request.Certificates, toolkit::CertificateCheck::Required);
  socket.Send("GET", url);
  SentRequest& second = platform.LastRequest();
  EXPECT_EQ(second.Request.Headers, (HTTPHeaders{{"X-One", "2"}}));
  EXPECT_EQ(second.Request.Body, "");
  second.BeginReply(404, {{"X-Kind", "a"}}, 6);
  second.ReplyPart("abcd");
  second.ReplyPart("ef");
  second.EndReply();
  EXPECT_THAT(events, ElementsAre("https://srv:8443/file 404", "4 of 6", "6 of 6", "page abcdef"));
  EXPECT_EQ(socket.ResponseHeader("x-kind"), "a");
  socket.Send("GET", url);
  platform.LastRequest().BeginReply(200);
  events.clear();
  socket.Disconnect();
  platform.LastRequest().Reply(200, "late");
  EXPECT_TRUE(platform.LastRequest().IsAbandoned());
  EXPECT_THAT(events, ElementsAre());
}

TEST_F(HTTPSocketTest, AFileTakesTheReplyOrTellsWhyNot) {
  const FolderItem file = platform.DesktopFolder().Child("download");
  const FolderItem missing = platform.DesktopFolder().Child("none").Child("download");
  const FolderItem full("/dev/full");
  const Text big(100'000, 'x');
  const struct {
    const char* name;
    const FolderItem& file;
    Text body, holds, lastEvent;
  } rows[] = {
      {"whole", file, big, big, "file " + big},
      {"empty, over an older file", file, "", "", "file "},
      {"fails midway", file, "half", "half",
       "error The server “srv” closed the connection before its reply was complete."},
      {"not creatable", missing, "x", "", "error The file " + missing.Path().string() + " could not be created."},
      {"full disk", full, big, "", "error The file /dev/full could not be written."},
      {"full disk, seen at the end", full, "x", "", "error The file /dev/full could not be written."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    events.clear();
    socket.Send("GET", url, row.file);
    SentRequest& sent = platform.LastRequest();
    sent.BeginReply(200);
    sent.ReplyPart(row.body);
    row.body == "half" ? sent.Fail(toolkit::TransferFault::ClosedEarly) : sent.EndReply();
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.back(), row.lastEvent);
    EXPECT_EQ(std::ranges::count_if(events, [](auto& event) { return event[0] == 'e' || event[0] == 'f'; }), 1);
    EXPECT_EQ(Read(row.file), row.holds);
    EXPECT_FALSE(sent.IsRunning());
  }
}

TEST_F(HTTPSocketTest, AnyHandlerMayDestroyTheSocketOrStartTheNextRequest) {
  const struct {
    const char* name;
    bool toFile, fails;
    std::size_t event;  // in which the handler acts
  } rows[] = {
      {"sent", false, false, 1}, {"headers", false, false, 2}, {"received", false, false, 3},
      {"page", false, false, 4}, {"file", true, false, 4},     {"error", false, true, 1},
  };
  for (const bool destroys : {false, true}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(Text(row.name) + (destroys ? ", destroyed" : ", next request"));
      std::size_t told = 0;
      auto acting = std::make_unique<Socket>();
      acting->Told = [&](const Text&) {
        if (++told == row.event) destroys ? acting.reset() : acting->Send("GET", "https://other:1/");
      };
      acting->SetRequestContent("body", "text/plain");
      row.toFile ? acting->Send("PUT", url, platform.DesktopFolder().Child("download")) : acting->Send("PUT", url);
      SentRequest& sent = platform.LastRequest();
      row.fails ? sent.Fail(toolkit::TransferFault::Refused) : sent.Reply(200, "ab");
      EXPECT_EQ(told, row.event) << "an event of a request that is no longer wanted";
      EXPECT_FALSE(sent.IsRunning());
      EXPECT_EQ(platform.LastRequest().Request.URL, destroys ? url : "https://other:1/");
    }
  }
}
