#include <gtest/gtest.h>

#include "service/TessenServicesClient.h"
#include "tests/support/HandPlatform.h"

using toolkit::FolderItem;

TEST(HTTPSocket, AFileTakesTheReplyOrTheErrorTellsWhyNot) {
  const HandPlatform platform;
  const FolderItem file = platform.DesktopFolder().Child("download");
  const FolderItem missing = platform.DesktopFolder().Child("none").Child("download");
  const std::string big(100'000, 'x');
  const struct {
    FolderItem file;
    std::string body, error;
  } rows[] = {
      {file, big, ""},
      {file, "", ""},
      {file, "half", "The server “srv” closed the connection before its reply was complete."},
      {missing, "x", "The file " + missing.Path().string() + " could not be created."},
      {FolderItem("/dev/full"), big, "The file /dev/full could not be written."},
      {FolderItem("/dev/full"), "seen at the end", "The file /dev/full could not be written."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.error);
    TessenServicesClient socket;
    std::string errors;
    socket.Error = [&](const auto& error) { errors += error.Message(); };
    socket.Send("GET", "https://srv:1701/file", row.file);
    platform.LastRequest().BeginReply(200);
    platform.LastRequest().ReplyPart(row.body);
    row.body == "half" ? platform.LastRequest().Fail(toolkit::TransferFault::ClosedEarly)
                       : platform.LastRequest().EndReply();
    EXPECT_EQ(errors, row.error);
    if (!is_regular_file(row.file.Path())) continue;
    std::ifstream stream(row.file.Path(), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), row.body);
  }
}
