#include "toolkit/TextFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <system_error>
#include <unistd.h>

#include "toolkit/BinaryStream.h"
#include "toolkit/RuntimeException.h"

namespace toolkit {
namespace {

[[noreturn]] void ThrowFor(const FolderItem& file, const std::string& failure, int error) {
  throw RuntimeException("The file " + file.Path().string() + " could not be " + failure + ": " +
                         std::generic_category().message(error) + ".");
}

/// The permissions of the file, or those for a new one.
std::filesystem::perms PermissionsOf(const FolderItem& file) {
  using std::filesystem::perms;
  constexpr perms forAll = perms::owner_read | perms::owner_write | perms::group_read | perms::others_read;
  return file.Exists() ? file.Permissions() & perms::all : forAll;
}

}  // namespace

std::string ReadFile(const FolderItem& file) {
  std::ifstream stream(file.Path(), std::ios::binary);
  std::string bytes;
  std::array<char, 65'536> piece{};
  // An istreambuf_iterator would throw the exceptions of the stream buffer.
  while (stream.read(piece.data(), piece.size()) || stream.gcount() > 0) {
    bytes.append(piece.data(), static_cast<std::size_t>(stream.gcount()));
  }
  if (!stream.is_open() || stream.bad()) ThrowFor(file, "read", errno == 0 ? EIO : errno);
  return bytes;
}

void ReplaceFile(const FolderItem& file, std::string_view bytes) {
  // A link is kept: its target is replaced.
  std::error_code ignored;
  const std::string path = std::filesystem::weakly_canonical(file.Path(), ignored).string();
  std::string fresh = path + ".XXXXXX";
  BinaryStream stream(mkstemp(fresh.data()));
  const bool isMade = stream.LastErrorCode() == 0;
  stream.Write(bytes);
  stream.Finish(PermissionsOf(FolderItem(path)));
  stream.Close();
  int error = stream.LastErrorCode();
  if (error == 0 && std::rename(fresh.c_str(), path.c_str()) != 0) error = errno;
  if (error == 0) return;
  if (isMade) unlink(fresh.c_str());
  ThrowFor(file, "written", error);
}

FolderItem SetAside(const FolderItem& file) {
  const std::string name = file.Name() + "_unreadable";
  std::string free = name;
  for (int number = 2; file.Parent().Child(free).Exists(); ++number) free = name + std::to_string(number);
  return file.Rename(free);
}

}  // namespace toolkit
