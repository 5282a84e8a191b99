#include <gtest/gtest.h>

#include "service/TessenServicesClient.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/TextFile.h"

using toolkit::FolderItem;

TEST(HTTPSocket, AFileTakesTheReplyOrTheErrorTellsWhyNot) {
  const HandPlatform platform;
  const FolderItem file = platform.DesktopFolder().Child("download");
  const FolderItem missing = platform.DesktopFolder().Child("none").Child("download");
  const std::string big(100'000, 'x');
  const std::string full = "The file /dev/full could not be written: No space left on device.";
  const std::tuple<FolderItem, std::string, std::string> rows[] = {
      {file, big, ""},
      {file, "", ""},
      {file, "half", "The connection to the server “srv” was closed before its reply was complete."},
      {missing, "x", "The file " + missing.Path().string() + " could not be written: No such file or directory."},
      {FolderItem("/dev/full"), big, full},
      {FolderItem("/dev/full"), "little", full},
  };
  for (const auto& [target, body, error] : rows) {
    SCOPED_TRACE(error);
    TessenServicesClient socket;
    std::string errors;
    socket.Error = [&](const auto& exception) { errors += exception.Message(); };
    socket.Send("GET", "https://srv:1701/file", target);
    platform.LastRequest().BeginReply(200);
    platform.LastRequest().ReplyPart(body);
    body == "half" ? platform.LastRequest().Fail(toolkit::TransferFault::ClosedEarly)
                   : platform.LastRequest().EndReply();
    EXPECT_EQ(errors, error);
    EXPECT_TRUE(!is_regular_file(target.Path()) || toolkit::ReadFile(target) == body);
  }
}
