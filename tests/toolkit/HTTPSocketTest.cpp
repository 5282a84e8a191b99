#include <gtest/gtest.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/HTTPSocket.h"

using toolkit::FolderItem;

namespace {

std::string Read(const FolderItem& file) {
  std::ifstream stream(file.Path(), std::ios::binary);
  return is_regular_file(file.Path()) ? std::string(std::istreambuf_iterator<char>(stream), {}) : "";
}

/// Notes how a download ends.
class Download final : public toolkit::HTTPSocket {
 public:
  std::vector<std::string> Ends;

 private:
  void Event_Error(const toolkit::RuntimeException& error) override { Ends.push_back("error " + error.Message()); }
  void Event_FileReceived(const std::string&, int, const FolderItem& file) override {
    Ends.push_back("file " + Read(file));
  }
  void Event_HeadersReceived(const std::string&, int) override {}
  void Event_PageReceived(const std::string&, int, std::string) override { Ends.emplace_back("page"); }
  void Event_ReceiveProgress(std::uint64_t, std::optional<std::uint64_t>) override {}
  void Event_SendProgress(std::uint64_t, std::uint64_t) override {}
};

}  // namespace

TEST(HTTPSocket, AFileTakesTheReplyOrTellsWhyNot) {
  const HandPlatform platform;
  const FolderItem file = platform.DesktopFolder().Child("download");
  const FolderItem missing = platform.DesktopFolder().Child("none").Child("download");
  const FolderItem full("/dev/full");
  const struct {
    const FolderItem& file;
    std::string body, holds, end;
  } rows[] = {
      {file, "whole", "whole", "file whole"},
      {file, "", "", "file "},
      {file, "half", "half", "error The server “srv” closed the connection before its reply was complete."},
      {missing, "x", "", "error The file " + missing.Path().string() + " could not be created."},
      {full, "x", "", "error The file /dev/full could not be written."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.end);
    Download download;
    download.Send("GET", "https://srv:1701/file", row.file);
    SentRequest& sent = platform.LastRequest();
    sent.BeginReply(200);
    sent.ReplyPart(row.body);
    row.body == "half" ? sent.Fail(toolkit::TransferFault::ClosedEarly) : sent.EndReply();
    EXPECT_EQ(download.Ends, std::vector{row.end});
    EXPECT_EQ(Read(row.file), row.holds);
  }
}
