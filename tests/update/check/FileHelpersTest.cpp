#include <filesystem>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/TextFile.h"
#include "update/check/FileHelpers.h"

namespace fs = std::filesystem;
using toolkit::FolderItem;

namespace {

/// A tree with names of every kind, links inside and outside, and a link that leads back to its top.
class FileHelpersTest : public testing::Test {
 protected:
  FileHelpersTest() {
    for (const char* name : {"a\"b'c", "line\nbreak", "😀 $x", "-rf", ".hidden"}) {
      tree.Child(name).Child("deeper").CreateAsFolder();
      toolkit::ReplaceFile(tree.Child(name).Child("deeper").Child(name), name);
    }
    outside.CreateAsFolder();
    toolkit::ReplaceFile(outside.Child("kept"), "kept");
    fs::create_directory_symlink(outside.Path(), tree.Child("link").Path());
    fs::create_directory_symlink(tree.Path(), tree.Child("-rf").Child("loop").Path());
    fs::create_symlink("nowhere", tree.Child("dangling").Path());
  }

  /// Whether `check` holds for a user who is not root.
  static bool HoldsForOthers(const std::function<bool()>& check) {
    const pid_t child = fork();
    if (child == 0) _exit(setgid(65534) == 0 && setuid(65534) == 0 && check() ? 0 : 1);
    int status = -1;
    return waitpid(child, &status, 0) == child && status == 0;
  }
  static void OpenToAll(const FolderItem& item, bool writeable) {
    fs::permissions(item.Path(), fs::perms(writeable ? 0777 : 0555));
    for (const FolderItem& entry : item.Children()) {
      if (entry.IsFolder()) OpenToAll(entry, writeable);
    }
  }

  HandPlatform platform;
  FolderItem tree = platform.DesktopFolder().Child("tree");
  FolderItem outside = platform.DesktopFolder().Child("outside");
};

}  // namespace

TEST_F(FileHelpersTest, HashesWhatCanBeRead) {
  const FolderItem file = tree.Child("file");
  for (const auto& [size, hash] : {std::pair<std::size_t, const char*>{0, "d41d8cd98f00b204e9800998ecf8427e"},
                                   {3, "47bce5c74f589f4867dbd57e9ca9f808"},
                                   {1'000'000, "7707d6ae4e027c70eea2a935c2296f21"},
                                   {2'500'000, "810b761e68a4f58192e0448bc415517e"}}) {
    toolkit::ReplaceFile(file, std::string(size, 'a'));
    EXPECT_EQ(Kaju::HashOfFile(file), hash) << size;
  }
  for (const FolderItem& other : {tree, tree.Child("missing"), tree.Child("dangling")}) {
    EXPECT_EQ(Kaju::HashOfFile(other), "") << other.Path();
  }
}

TEST_F(FileHelpersTest, DeletesTheWholeTreeAndNothingBehindItsLinks) {
  Kaju::DeleteRecursive(tree.Child("missing"));
  Kaju::DeleteRecursive(tree);
  EXPECT_FALSE(tree.Exists());
  EXPECT_EQ(toolkit::ReadFile(outside.Child("kept")), "kept");
}

TEST_F(FileHelpersTest, LeavesAReadOnlyFolderWithAllThatIsInIt) {
  OpenToAll(platform.DesktopFolder().Parent(), true);
  OpenToAll(tree.Child("-rf"), false);
  EXPECT_TRUE(HoldsForOthers([&] {
    Kaju::DeleteRecursive(tree.Child("-rf"));
    return tree.Child("-rf").Child("deeper").Child("-rf").Exists();
  }));
}

TEST_F(FileHelpersTest, KnowsWhetherEverythingCanBeWritten) {
  OpenToAll(platform.DesktopFolder().Parent(), true);
  const FolderItem file = tree.Child("-rf").Child("deeper").Child("-rf");
  const auto isWriteable = [&](const FolderItem& item) {
    return HoldsForOthers([&] { return Kaju::IsWriteableRecursive(item); });
  };
  for (const FolderItem& folder : {tree, tree.Child("-rf"), outside}) {
    for (const FolderItem& entry : folder.Children()) {
      if (!entry.IsFolder() && fs::is_regular_file(entry.Path())) fs::permissions(entry.Path(), fs::perms(0666));
    }
  }
  EXPECT_FALSE(isWriteable(tree));  // the files in the depth are not
  for (const auto& entry : fs::recursive_directory_iterator(tree.Path())) {
    if (entry.is_regular_file() && !entry.is_symlink()) fs::permissions(entry.path(), fs::perms(0666));
  }
  EXPECT_TRUE(isWriteable(tree));
  EXPECT_TRUE(isWriteable(file));
  fs::permissions(outside.Child("kept").Path(), fs::perms(0444));  // behind a link, so it does not count
  EXPECT_TRUE(isWriteable(tree));
  fs::permissions(file.Path(), fs::perms(0444));
  EXPECT_FALSE(isWriteable(tree));
  EXPECT_FALSE(isWriteable(file));
  EXPECT_FALSE(isWriteable(tree.Child("missing")));
}

TEST_F(FileHelpersTest, MakesTemporaryFoldersForThisUserAlone) {
  const FolderItem one = Kaju::GetTemporaryFolder();
  const FolderItem other = Kaju::GetTemporaryFolder();
  EXPECT_NE(one.Path(), other.Path());
  struct stat status {};
  ASSERT_EQ(stat(one.Path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0700U);
  EXPECT_THAT(one.Children(), testing::IsEmpty());
  one.Delete();
  other.Delete();
}

TEST_F(FileHelpersTest, FindsWhatAnUpdateReplaces) {
  const struct {
    Kaju::System system;
    const char* executable;
    const char* replaced;
  } rows[] = {
      {Kaju::System::Mac, "/Applications/My App.app/Contents/MacOS/app", "/Applications/My App.app"},
      {Kaju::System::Mac, "/a/cONTENTS/b/Contents/x/app", "/a/cONTENTS/b"},
      {Kaju::System::Mac, "/opt/app", "/opt/app"},
      {Kaju::System::Linux, "/opt/Contents/app", "/opt/Contents/app"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Kaju::TrueExecutableFile(FolderItem(row.executable), row.system).Path(), row.replaced);
  }
  EXPECT_EQ(Kaju::TrueExecutableFile().Path(), fs::canonical("/proc/self/exe"));
}

TEST_F(FileHelpersTest, ReplacesAFileWholeOrNotAtAll) {
  const FolderItem file = tree.Child("text");
  toolkit::ReplaceFile(file, "old");
  fs::permissions(file.Path(), fs::perms(0600));
  toolkit::ReplaceFile(file, "new");
  EXPECT_EQ(toolkit::ReadFile(file), "new");
  EXPECT_EQ(fs::status(file.Path()).permissions(), fs::perms(0600));
  const std::size_t entries = tree.Children().size();
  EXPECT_THROW(toolkit::ReplaceFile(tree.Child("link"), "x"), toolkit::RuntimeException);
  EXPECT_THROW(toolkit::ReplaceFile(outside, "x"), toolkit::RuntimeException);
  EXPECT_EQ(tree.Children().size(), entries);
  EXPECT_EQ(toolkit::ReadFile(outside.Child("kept")), "kept");
}
