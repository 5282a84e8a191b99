#include <filesystem>
#include <span>

#include <gmock/gmock.h>

#include "shell/App.h"
#include "tests/support/HandPlatform.h"
#include "update/install/Updating.h"

namespace fs = std::filesystem;
using toolkit::FolderItem;

TEST(FailedUpdate, IsToldAndTakenAway) {
  const HandPlatform platform;
  const App app{{1, 2, 3}};
  const FolderItem temporary = platform.DesktopFolder();
  setenv("TMPDIR", temporary.Path().c_str(), 1);
  const FolderItem download = temporary.Child("hand-run-download");
  const FolderItem unpacked = download.Child("decompressed").Child("app");
  const FolderItem running = temporary.Child("hand-run-running");
  const FolderItem other = temporary.Child("other").Child("decompressed").Child("app");
  const FolderItem failed = temporary.Child("hand-run-failed");
  std::string arguments[] = {"corvane", "--kaju-fail"};
  char* values[] = {arguments[0].data(), arguments[1].data()};
  for (const FolderItem& left : {unpacked, other}) {
    for (const FolderItem& folder : {unpacked, failed, running, other}) folder.CreateAsFolder();
    fs::create_symlink(left.Path(), failed.Child("failed").Path());
    Kaju::TellFailedUpdate(std::span(values).first(1));
    EXPECT_TRUE(failed.Exists());
    Kaju::TellFailedUpdate(values);
    EXPECT_TRUE(!failed.Exists() && running.Exists() && other.Exists());
    EXPECT_EQ(download.Exists(), left.Path() == other.Path());
  }
  EXPECT_THAT(platform.Messages,
              testing::AllOf(testing::SizeIs(2), testing::Each("The update could not be installed.")));
  unsetenv("TMPDIR");
}
