#include <filesystem>

#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "tests/support/OtherUser.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/TextFile.h"
#include "update/check/FileHelpers.h"

namespace fs = std::filesystem;
using toolkit::FolderItem;

namespace {

/// A tree with odd names, links inside and outside, and one back to its top.
struct FileHelpers : testing::Test {
  FileHelpers() {
    for (const char* name : {"a\"b'c", "line\nbreak", "-rf", ".hidden"}) {
      tree.Child(name).Child("deeper").CreateAsFolder();
      toolkit::ReplaceFile(tree.Child(name).Child("deeper").Child(name), name);
    }
    outside.CreateAsFolder();
    toolkit::ReplaceFile(outside.Child("kept"), "kept");
    fs::create_directory_symlink(outside.Path(), tree.Child("link").Path());
    fs::create_directory_symlink(tree.Path(), tree.Child("-rf").Child("loop").Path());
    fs::create_symlink("nowhere", tree.Child("dangling").Path());
  }

  /// Sets the permissions of a folder, the folders in it and the files in them.
  static void Allow(const FolderItem& folder, int ofFolders, int ofFiles) {
    fs::permissions(folder.Path(), fs::perms(ofFolders));
    for (const auto& entry : fs::recursive_directory_iterator(folder.Path())) {
      if (!entry.is_symlink()) fs::permissions(entry.path(), fs::perms(entry.is_directory() ? ofFolders : ofFiles));
    }
  }

  HandPlatform platform;
  FolderItem tree = platform.DesktopFolder().Child("tree");
  FolderItem outside = platform.DesktopFolder().Child("outside");
};

}  // namespace

TEST_F(FileHelpers, HashWhatCanBeRead) {
  const FolderItem file = tree.Child("file");
  for (const auto& [size, hash] : {std::pair<std::size_t, const char*>{0, "d41d8cd98f00b204e9800998ecf8427e"},
                                   {3, "47bce5c74f589f4867dbd57e9ca9f808"},
                                   {2'500'000, "810b761e68a4f58192e0448bc415517e"}}) {
    toolkit::ReplaceFile(file, std::string(size, 'a'));
    EXPECT_EQ(Kaju::HashOfFile(file), hash) << size;
  }
  for (const FolderItem& other : {tree, tree.Child("dangling")}) EXPECT_EQ(Kaju::HashOfFile(other), "") << other.Path();
  Allow(platform.DesktopFolder().Parent(), 0777, 0);
  EXPECT_TRUE(HoldsForOtherUser([&] { return file.Exists() && Kaju::HashOfFile(file).empty(); }));
}

TEST_F(FileHelpers, DeleteAllOrNothingAndNothingBehindLinks) {
  const FolderItem locked = tree.Child("-rf");
  Allow(platform.DesktopFolder().Parent(), 0777, 0666);
  Allow(locked, 0555, 0666);
  EXPECT_TRUE(HoldsForOtherUser([&] {
    Kaju::DeleteRecursive(locked);
    return locked.Child("deeper").Child("-rf").Exists();
  }));
  for (const FolderItem& item : {tree.Child("missing"), tree}) {
    Kaju::DeleteRecursive(item);
    EXPECT_FALSE(item.Exists()) << item.Path();
  }
  EXPECT_EQ(toolkit::ReadFile(outside.Child("kept")), "kept");
}

TEST_F(FileHelpers, KnowWhetherEverythingCanBeWritten) {
  const FolderItem file = tree.Child("-rf").Child("deeper").Child("-rf");
  Allow(platform.DesktopFolder().Parent(), 0777, 0666);
  fs::permissions(outside.Child("kept").Path(), fs::perms(0444));  // behind a link, so it does not count
  const auto areWriteable = [&](bool treeIs, bool fileIs) {
    return HoldsForOtherUser(
        [&] { return Kaju::IsWriteableRecursive(tree) == treeIs && Kaju::IsWriteableRecursive(file) == fileIs; });
  };
  EXPECT_TRUE(areWriteable(true, true));
  fs::permissions(file.Path(), fs::perms(0444));
  EXPECT_TRUE(areWriteable(false, false));
  Allow(tree.Child("-rf"), 0555, 0666);
  EXPECT_TRUE(areWriteable(false, true));
  EXPECT_FALSE(Kaju::IsWriteableRecursive(tree.Child("missing")));
}

TEST_F(FileHelpers, MakeTemporaryFoldersForThisUserAlone) {
  const FolderItem one = Kaju::GetTemporaryFolder();
  const FolderItem other = Kaju::GetTemporaryFolder();
  EXPECT_NE(one.Path(), other.Path());
  EXPECT_EQ(fs::status(one.Path()).permissions(), fs::perms(0700));
  one.Delete();
  other.Delete();
}

TEST_F(FileHelpers, FindWhatAnUpdateReplaces) {
  using Kaju::System;
  const std::tuple<System, const char*, const char*> rows[] = {
      {System::Mac, "/Applications/My App.app/Contents/MacOS/app", "/Applications/My App.app"},
      {System::Mac, "/a/cONTENTS/b/Contents/x/app", "/a/cONTENTS/b"},
      {System::Mac, "/opt/app", "/opt/app"},
      {System::Linux, "/opt/Contents/app", "/opt/Contents/app"},
  };
  for (const auto& [system, executable, replaced] : rows) {
    EXPECT_EQ(Kaju::TrueExecutableFile(FolderItem(executable), system).Path(), replaced);
  }
  EXPECT_EQ(Kaju::TrueExecutableFile().Path(), fs::canonical("/proc/self/exe"));
}

TEST_F(FileHelpers, ReplaceAFileWholeOrNotAtAll) {
  const FolderItem file = tree.Child("text");
  toolkit::ReplaceFile(file, "old");
  fs::permissions(file.Path(), fs::perms(0600));
  toolkit::ReplaceFile(file, "new");
  EXPECT_EQ(toolkit::ReadFile(file), "new");
  EXPECT_EQ(fs::status(file.Path()).permissions(), fs::perms(0600));
  const std::size_t entries = tree.Children().size();
  EXPECT_THROW(toolkit::ReplaceFile(tree.Child("link"), "x"), toolkit::RuntimeException);
  EXPECT_EQ(tree.Children().size(), entries);
  EXPECT_EQ(toolkit::ReadFile(outside.Child("kept")), "kept");
}
