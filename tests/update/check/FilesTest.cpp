#include <dlfcn.h>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <openssl/evp.h>

#include "tests/support/HandPlatform.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/TextFile.h"
#include "update/check/FileCheck.h"
#include "update/check/FileHelpers.h"

namespace fs = std::filesystem;
using toolkit::FolderItem;

namespace {

bool isMD5SwitchedOff = false;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): for the function below

const std::string md5 = "888d0ee361af3603736f32131e7b20a2";
const std::string sha256 = "0eb3e36bfb24dcd9bb1d1bece1531216b59539a8fde17ee80224af0653c92aa3";

/// Whether `check` returns true in a child process of a user who is not root.
bool HoldsForOtherUser(const std::function<bool()>& check) {
  constexpr unsigned nobody = 65534;
  const pid_t child = fork();
  if (child == 0) _exit(setgid(nobody) == 0 && setuid(nobody) == 0 && check() ? 0 : 1);
  int status = -1;
  return waitpid(child, &status, 0) == child && status == 0;
}

/// A tree with odd names, links inside and outside, and one back to its top.
struct Files : testing::Test {
  Files() {
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

/// Replaces the function of the library, to play a system without MD5.
extern "C" EVP_MD* EVP_MD_fetch(OSSL_LIB_CTX* ctx, const char* algorithm, const char* properties) {
  if (isMD5SwitchedOff && std::string_view(algorithm) == "MD5") return nullptr;
  static const auto fetch = reinterpret_cast<decltype(&EVP_MD_fetch)>(dlsym(RTLD_NEXT, "EVP_MD_fetch"));
  return fetch(ctx, algorithm, properties);
}

TEST_F(Files, DeleteAllOrNothingAndNothingBehindLinks) {
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

TEST_F(Files, KnowWhetherEverythingCanBeWritten) {
  Allow(platform.DesktopFolder().Parent(), 0777, 0666);
  fs::permissions(outside.Child("kept").Path(), fs::perms(0444));  // behind a link, so it is ignored
  EXPECT_TRUE(HoldsForOtherUser([&] { return Kaju::IsWriteableRecursive(tree); }));
  Allow(tree.Child("-rf"), 0555, 0666);
  EXPECT_TRUE(HoldsForOtherUser([&] { return !Kaju::IsWriteableRecursive(tree); }));
  Allow(tree.Child("-rf"), 0777, 0444);
  EXPECT_TRUE(HoldsForOtherUser([&] { return !Kaju::IsWriteableRecursive(tree); }));
}

TEST_F(Files, ReplaceAFileWholeOrNotAtAll) {
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

TEST_F(Files, TakeOnlyWhatIsWhollyAsTold) {
  const toolkit::FolderItem file = platform.DesktopFolder().Child("file");
  toolkit::ReplaceFile(file, "archive");
  const std::string strong = R"(,"SHA256":")" + sha256 + "\"";
  const std::string other = "1" + sha256.substr(1);
  using enum Kaju::FileVerdict;
  const std::tuple<std::string, std::string, Kaju::FileVerdict, Kaju::FileVerdict> rows[] = {
      // clang-format off
      // the MD5, and further members               with MD5   and without it
      {md5, "",                                     Genuine,   Uncheckable},
      {other, "",                                   Corrupted, Uncheckable},
      {md5, strong,                                 Genuine,   Genuine},
      {"0" + md5.substr(1), strong,                 Corrupted, Genuine},
      {md5, R"(,"SHA256":")" + other + "\"",        Corrupted, Corrupted},
      {md5, R"(,"SHA256":[])",                      Genuine,   Uncheckable},
      {md5, strong + R"(,"Size":6)",                Corrupted, Corrupted},
      // clang-format on
  };
  for (const auto& [hash, members, withMD5, withoutMD5] : rows) {
    const Kaju::BinaryInformation binary(true, boost::json::parse(R"({"Hash":")" + hash + "\"" + members + "}"));
    EXPECT_EQ(VerifyFile(file, binary), withMD5) << hash << members;
    isMD5SwitchedOff = true;
    EXPECT_EQ(VerifyFile(file, binary), withoutMD5) << hash << members;
    EXPECT_NE(VerifyFile(platform.DesktopFolder().Child("missing"), binary), Genuine) << hash << members;
    isMD5SwitchedOff = false;
  }
}
