#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "tests/desktop/Desktop.h"
#include "tests/support/CRC32.h"
#include "toolkit/TextFile.h"
#include "update/check/FileHelpers.h"
#include "update/check/KajuException.h"
#include "update/install/ZipShell.h"

using Kaju::ZipShell;
using std::filesystem::perms;
using toolkit::FolderItem;

namespace {

/// An entry of a zip archive, as a hostile publisher may write it.
struct Entry {
  std::string Name;
  std::string Content = "content";
  /// Type and permissions, as stat() gives them.
  std::uint32_t Mode = 0100644;
  std::uint16_t Flags = 0x800;  // the name is in UTF-8
  std::uint32_t DeclaredSize = 0;
};

std::string Number(std::uint32_t value, int bytes) {
  std::string number;
  for (int byte = 0; byte < bytes; ++byte) number += static_cast<char>(value >> (8 * byte));
  return number;
}

/// Entries are stored, not compressed, with the fields of APPNOTE.TXT 6.3.
std::string Zip(const std::vector<Entry>& entries) {
  std::string files;
  std::string directory;
  for (const Entry& entry : entries) {
    const auto stored = static_cast<std::uint32_t>(entry.Content.size());
    const std::uint32_t size = entry.DeclaredSize == 0 ? stored : entry.DeclaredSize;
    const std::string common = Number(20, 2) + Number(entry.Flags, 2) + Number(0, 2) + Number(0x5A215A21, 4) +
                               Number(CRC32(entry.Content), 4) + Number(stored, 4) + Number(size, 4) +
                               Number(static_cast<std::uint32_t>(entry.Name.size()), 2) + Number(0, 2);
    directory += "PK\1\2" + Number(0x031E, 2) + common + Number(0, 4) + Number(0, 2) + Number(entry.Mode << 16U, 4) +
                 Number(static_cast<std::uint32_t>(files.size()), 4) + entry.Name;
    files += "PK\3\4" + common + entry.Name + entry.Content;
  }
  const std::string count = Number(static_cast<std::uint32_t>(entries.size()), 2);
  return files + directory + "PK\5\6" + Number(0, 4) + count + count +
         Number(static_cast<std::uint32_t>(directory.size()), 4) + Number(static_cast<std::uint32_t>(files.size()), 4) +
         Number(0, 2);
}

/// With few names, so that links refer to other entries. Half of the archives have harmless names only; half are
/// damaged afterwards.
std::string RandomZip(std::minstd_rand& random) {
  const auto oneOf = [&](const auto& values) { return values[random() % std::size(values)]; };
  const bool isTame = random() % 2 == 0;
  static const std::vector<std::string> tame{"a", "b", "l"};
  static const std::vector<std::string> wild{
      "a", "b", "l", "l", "..", "..", ".", "", "x\ny", "[a]*", "$(touch hacked)", "\\", "C:", "-d", "@", "*", "/"};
  const auto path = [&](const std::vector<std::string>& parts) {
    std::string text = oneOf(parts);
    for (auto more = random() % 4; more > 0; --more) text += "/" + oneOf(parts);
    return text;
  };
  std::vector<Entry> entries;
  for (auto count = 1 + random() % 7; count > 0; --count) {
    Entry entry{path(isTame ? tame : wild)};
    const auto meets = [&](const Entry& other) { return (entry.Name + "/").starts_with(other.Name + "/"); };
    if (isTame && std::ranges::any_of(entries, meets)) continue;
    entry.Mode = oneOf(isTame ? std::vector{0100644U, 0120777U, 0120777U}
                              : std::vector{0100644U, 0100444U, 0104755U, 040755U, 040555U, 0120777U, 0010644U});
    if ((entry.Mode & 0170000U) == 0120000U) entry.Content = path(wild);
    if ((entry.Mode & 0170000U) == 0040000U) entry = {entry.Name + "/", "", entry.Mode};
    entries.push_back(entry);
  }
  std::string archive = Zip(entries);
  for (auto changes = random() % 2 * (1 + random() % 6); changes > 0; --changes) {
    const auto place = random() % archive.size();
    if (random() % 2 == 0)
      archive[place] = oneOf(std::string("\0\xFF/.\\lab", 8));
    else
      archive.replace(place, random() % 30, archive.substr(place / 2, random() % 30));
  }
  return archive;
}

class ZipShellTest : public Desktop {
 protected:
  ZipShellTest() {
    shell.Mode = ZipShell::RunMode::Asynchronous;
    shell.Error = [this] { end = "error"; };
    shell.CompressCompleted = [this](const FolderItem& result) { end = "made " + result.Name(); };
    shell.DecompressCompleted = [this](const FolderItem& zip, const FolderItem& to) {
      end = zip.Name() + " to " + to.Name();
    };
  }
  void TearDown() override { std::filesystem::remove_all(folder.Path()); }

  FolderItem Write(const std::string& name, const std::string& bytes) {
    toolkit::ReplaceFile(folder.Child(name), bytes);
    return folder.Child(name);
  }
  /// How unpacking into a folder named "out" ends, which must be within five seconds.
  std::string Unpack(const FolderItem& archive) {
    Kaju::DeleteRecursive(folder.Child("out"));
    end.clear();
    shell.Decompress(archive, folder.Child("out"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !end.empty(); }, 5'000));
    return end;
  }

  FolderItem folder = toolkit::MakeTemporaryFolder();
  ZipShell shell;
  std::string end;
};

}  // namespace

TEST_F(ZipShellTest, KeepsPermissions) {
  const FolderItem source = folder.Child("an app's $HOME 🚀");
  const FolderItem inner = source.Child("-rf").Child("ünï\ncode [1]*");
  inner.CreateAsFolder();
  toolkit::ReplaceFile(inner.Child("program"), "#!");
  inner.Child("program").Permissions(perms::owner_all | perms::others_exec);
  std::filesystem::create_symlink("../-rf", source.Child("link").Path().parent_path() / "-rf" / "link");
  shell.Compress(source, folder);
  EXPECT_EQ(shell.CurrentOperation(), ZipShell::Operation::Compress);
  ASSERT_TRUE(Until([&] { return !end.empty(); }));
  EXPECT_EQ(end, "made " + source.Name() + ".zip");
  EXPECT_EQ(shell.CurrentOperation(), ZipShell::Operation::None);
  const FolderItem archive = folder.Child(source.Name() + ".zip");
  EXPECT_EQ(ZipShell::ContentsOf(archive), source.Name());
  toolkit::ReplaceFile(folder.Child("led.zip"), "bytes before it" + toolkit::ReadFile(archive));  // only a warning
  EXPECT_EQ(ZipShell::ContentsOf(folder.Child("led.zip")), source.Name());
  EXPECT_EQ(ZipShell::ContentsOf(folder.Child("missing.zip")), "");

  EXPECT_EQ(Unpack(archive), archive.Name() + " to out");
  const FolderItem unpacked = folder.Child("out").Child(source.Name()).Child("-rf");
  EXPECT_EQ(unpacked.Child(inner.Name()).Child("program").Permissions(), perms::owner_all | perms::others_exec);
  EXPECT_EQ(std::filesystem::read_symlink(unpacked.Child("link").Path()), "../-rf");

  end.clear();
  shell.Mode = ZipShell::RunMode::Synchronous;
  shell.Decompress(archive, std::nullopt);
  EXPECT_TRUE(end.empty() && shell.CurrentOperation() == ZipShell::Operation::None);
  EXPECT_EQ(shell.ErrorCode(), 0);
  EXPECT_THROW(ZipShell::WindowsUnzip(archive, folder), Kaju::KajuException);
}

TEST_F(ZipShellTest, RefusesArchivesThatAreNoUpdates) {
  const FolderItem outside = Write("outside", "untouched");
  const std::string good = Zip({{"app/x"}});
  std::vector<Entry> many(100'001);
  for (std::size_t index = 0; index < many.size(); ++index) many[index] = {std::to_string(index), ""};
  const std::tuple<const char*, std::string, bool> rows[] = {
      {"plain", good, true},
      {"a link inside", Zip({{"a/x"}, {"l", "a/x", 0120777}, {"dangling", "a/y", 0120777}}), true},
      {"a name with dots", Zip({{"a..b/...c"}}), true},
      {"links that meet inside", Zip({{"d/l", "..", 0120777}, {"m", "d/l/d/./x", 0120777}}), true},
      {"links of odd names", Zip({{"@", "*/]", 0120777}, {"*", "$(x)", 0120777}, {"$(x)/]", "../../@", 0120777}}),
       false},
      {"a link through itself", Zip({{"app/l", "l/l", 0120777}}), false},
      {"a circle of links", Zip({{"a", "b/b", 0120777}, {"b", "a/a", 0120777}}), false},
      {"folders to leave alone", Zip({{"a/", "", 040555}, {"a/b/", "", 040000}, {"a/b/x", "", 0100444}}), true},
      {"no zip", "nothing of the kind", false},
      {"nothing", "", false},
      {"no entries", Zip({}), false},
      {"truncated", good.substr(0, good.size() - 30), false},
      {"an absolute name", Zip({{"/tmp/x"}}), false},
      {"a drive", Zip({{"C:x"}}), false},
      {"upwards", Zip({{"../outside"}}), false},
      {"upwards at the end", Zip({{"a/.."}}), false},
      {"upwards by the other slash", Zip({{"..\\outside"}}), false},
      {"twice", Zip({{"a"}, {"a"}}), false},
      {"twice, written otherwise", Zip({{"a/b"}, {"a//./b"}}), false},
      {"a file as folder", Zip({{"a"}, {"a/b"}}), false},
      {"through a link", Zip({{"l", "..", 0120777}, {"l/outside"}}), false},
      {"a link outside", Zip({{"a/l", "../../outside", 0120777}}), false},
      {"an absolute link", Zip({{"l", "/etc/passwd", 0120777}}), false},
      {"links together", Zip({{"d/l", "..", 0120777}, {"m", "d/l/../outside", 0120777}}), false},
      {"set-user-id", Zip({{"x", "", 0104755}}), false},
      {"a device", Zip({{"x", "", 0020666}}), false},
      {"encrypted", Zip({{"x", std::string(20, 'x'), 0100644, 0x801}}), false},
      {"larger than it says", Zip({{"x", std::string(9000, 'x'), 0100644, 0x800, 10}}), false},
      {"huge", Zip({{"x", "x", 0100644, 0x800, 4'000'000'001}}), false},
      {"100,001 files", Zip(many), false},
  };
  for (const auto& [name, bytes, isGood] : rows) {
    SCOPED_TRACE(name);
    const FolderItem archive = Write("a [1]* 'b'.zip", bytes);
    EXPECT_EQ(Unpack(archive), isGood ? archive.Name() + " to out" : "error");
    EXPECT_EQ(toolkit::ReadFile(outside), "untouched");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
      EXPECT_FALSE(isGood && entry.is_directory() &&
                   (entry.status().permissions() & perms::owner_write) == perms::none);
    }
  }
  // Bytes before the archive are only a warning.
  EXPECT_EQ(ZipShell::ContentsOf(Write("odd.zip", "before" + good)), "app/x");
}

TEST_F(ZipShellTest, NothingLeavesItsFolder) {
  const char* asked = std::getenv("CORVANE_ARCHIVES");
  const int count = asked == nullptr ? 200 : std::atoi(asked);
  const FolderItem outside[] = {Write("outside", "untouched"), Write("l", "untouched"), Write("a", "untouched")};
  const std::string out = folder.Child("out").Path();
  std::minstd_rand random(1);
  int unpacked = 0;
  for (int number = 0; number < count; ++number) {
    SCOPED_TRACE(number);
    unpacked += Unpack(Write("a.zip", RandomZip(random))) == "error" ? 0 : 1;
    for (const FolderItem& item : outside) ASSERT_EQ(toolkit::ReadFile(item), "untouched");
    ASSERT_LE(folder.Children().size(), 5U) << "something else has come";
    if (end == "error") continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(out)) {
      SCOPED_TRACE(entry.path());
      ASSERT_TRUE(entry.is_symlink() || entry.is_directory() || entry.is_regular_file());
      ASSERT_TRUE((std::filesystem::weakly_canonical(entry.path()).string() + "/").starts_with(out + "/"));
      ASSERT_TRUE(!entry.is_directory() || (entry.status().permissions() & perms::owner_all) == perms::owner_all);
    }
  }
  EXPECT_TRUE(unpacked > count / 10 && unpacked < count) << unpacked << " were good";
}
