#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/HTTPSocket.h"

using toolkit::FolderItem;
using toolkit::HTTPHeaders;

namespace {

constexpr const char* url = "https://srv:1701/file";

std::string Read(const FolderItem& file) {
  std::ifstream stream(file.Path(), std::ios::binary);
  return is_regular_file(file.Path()) ? std::string(std::istreambuf_iterator<char>(stream), {}) : "";
}

/// Notes each event as a line.
class Socket final : public toolkit::HTTPSocket {
 public:
  std::vector<std::string> Events;

 private:
  void Event_Error(const toolkit::RuntimeException& error) override { Events.push_back("error " + error.Message()); }
  void Event_FileReceived(const std::string&, int, const FolderItem& file) override {
    Events.push_back("file " + Read(file));
  }
  void Event_HeadersReceived(const std::string& at, int status) override {
    Events.push_back(at + " " + std::to_string(status));
  }
  void Event_PageReceived(const std::string&, int, std::string content) override {
    Events.push_back("page " + content);
  }
  void Event_ReceiveProgress(std::uint64_t received, std::optional<std::uint64_t> total) override {
    Events.push_back(std::to_string(received) + " of " + std::to_string(total.value_or(0)));
  }
  void Event_SendProgress(std::uint64_t, std::uint64_t) override {}
};

}  // namespace

TEST(HTTPSocket, HeadersStayForTheNextRequestAndContentDoesNot) {
  const HandPlatform platform;
  Socket socket;
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
  EXPECT_THAT(socket.Events, testing::ElementsAre("https://srv:1701/file 404", "4 of 6", "6 of 6", "page abcdef"));
  EXPECT_EQ(socket.ResponseHeader("x-kind"), "a");
}

TEST(HTTPSocket, AFileTakesTheReplyOrTellsWhyNot) {
  const HandPlatform platform;
  const FolderItem file = platform.DesktopFolder().Child("download");
  const FolderItem missing = platform.DesktopFolder().Child("none").Child("download");
  const FolderItem full("/dev/full");
  const std::string big(100'000, 'x');
  const std::string lost = "error The server “srv” closed the connection before its reply was complete.";
  const std::string notWritten = "error The file /dev/full could not be written.";
  const struct {
    const char* name;
    const FolderItem& file;
    std::string body, holds, lastEvent;
  } rows[] = {
      {"whole", file, big, big, "file " + big},
      {"empty, over an older file", file, "", "", "file "},
      {"fails midway", file, "half", "half", lost},
      {"not creatable", missing, "x", "", "error The file " + missing.Path().string() + " could not be created."},
      {"full disk", full, big, "", notWritten},
      {"full disk, seen at the end", full, "x", "", notWritten},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Socket socket;
    socket.Send("GET", url, row.file);
    SentRequest& sent = platform.LastRequest();
    sent.BeginReply(200);
    sent.ReplyPart(row.body);
    row.body == "half" ? sent.Fail(toolkit::TransferFault::ClosedEarly) : sent.EndReply();
    ASSERT_FALSE(socket.Events.empty());
    EXPECT_EQ(socket.Events.back(), row.lastEvent);
    EXPECT_EQ(std::ranges::count_if(socket.Events, [](auto& event) { return event[0] == 'e' || event[0] == 'f'; }), 1);
    EXPECT_EQ(Read(row.file), row.holds);
  }
}
