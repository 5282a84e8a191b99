#include <chrono>
#include <filesystem>
#include <memory>

#include <gmock/gmock.h>

#include "shell/App.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/TextFile.h"
#include "update/check/FileHelpers.h"
#include "update/install/Updating.h"

namespace fs = std::filesystem;
using Kaju::UpdateInitiater;
using testing::AllOf;
using testing::IsEmpty;
using toolkit::FolderItem;

namespace {

/// An unpacked update, and a place of its own for temporary files.
struct Initiater : testing::Test {
  Initiater() {
    for (const FolderItem& folder : {temporary, replacement}) folder.CreateAsFolder();
    toolkit::ReplaceFile(replacement.Child("corvane"), "new");
    setenv("TMPDIR", temporary.Path().c_str(), 1);
    initiater->ReplacementAppFolder = replacement;
    initiater->ReplacementExecutableName = "corvane";
    platform.WhileWaiting = [this] { ++waits, platform.Advance(std::chrono::milliseconds(100)); };
  }
  ~Initiater() override { unsetenv("TMPDIR"); }

  HandPlatform platform;
  App app{{1, 2, 3}};
  FolderItem temporary = platform.DesktopFolder().Child("temporary");
  FolderItem replacement = platform.DesktopFolder().Child("new");
  std::shared_ptr<UpdateInitiater> initiater = std::make_shared<UpdateInitiater>();
  int waits = 0;
};

}  // namespace

TEST_F(Initiater, RunsItsScriptWhenTheLastOwnerLetsGo) {
  Kaju::StartUpdate(initiater);
  initiater = nullptr;
  EXPECT_THAT(platform.Processes, IsEmpty());
  app.UpdateInitiater = nullptr;
  ASSERT_EQ(platform.Processes.size(), 1U);
  ASSERT_EQ(temporary.Children().size(), 1U);
  const FolderItem folder = temporary.Children()[0];
  EXPECT_EQ(folder.Permissions(), fs::perms::owner_all);
  EXPECT_EQ(platform.Processes[0]->CommandLine, "/usr/bin/nohup '" + folder.Path().string() + "/kaju_updater.sh' &");
  EXPECT_EQ(waits, 11) << "a second, for the script to start";
  EXPECT_THAT(folder.Children(), testing::SizeIs(2))
      << "the file of the process stays, or the environment is not there";
}

TEST_F(Initiater, DoesNothingWithoutAReplacement) {
  Kaju::StartUpdate(initiater);
  for (int time = 0; time < 2; ++time) Kaju::CancelUpdate();
  EXPECT_EQ(app.UpdateInitiater, nullptr);
  EXPECT_FALSE(initiater->ReplacementAppFolder);
  initiater->ReplacementAppFolder = replacement.Child("missing");
  initiater = nullptr;
  EXPECT_THAT(temporary.Children(), IsEmpty());
  EXPECT_TRUE(platform.Processes.empty() && platform.Messages.empty());
}

TEST_F(Initiater, TakesTheCacheFolderIfNeedBe) {
  const fs::path scripts[] = {temporary.Path(), platform.CacheFolder().Path()};
  for (const int place : {0, 1}) {
    platform.WhileWaiting = [&, starts = place] {
      const bool isHere = platform.Processes.back()->CommandLine.starts_with("'" + scripts[starts].string());
      platform.Processes.back()->End(isHere ? 0 : 126);
      platform.Advance(std::chrono::milliseconds(100));
    };
    EXPECT_EQ(initiater->WhatPreventsIt(), "");
    EXPECT_TRUE(temporary.Children().empty() && platform.CacheFolder().Children().empty());
    initiater->RunScript();
    EXPECT_THAT(platform.Processes.back()->CommandLine,
                testing::StartsWith("/usr/bin/nohup '" + scripts[place].string()));
    for (const auto& folder : toolkit::TemporaryFolders()) Kaju::DeleteWholly(folder);
  }
  initiater->Cancel();
}

TEST_F(Initiater, KnowsWhatAFailedUpdateLeft) {
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
  EXPECT_THAT(platform.Messages, AllOf(testing::SizeIs(2), testing::Each("The update could not be installed.")));
}
