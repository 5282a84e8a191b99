#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace toolkit {

/// A reference to a file or folder by its path, whether it exists or not. A symbolic link is an entry of its own: it
/// is no folder, and what is done to it is not done to what it points to.
class FolderItem {
 public:
  explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// The last component of the path, in UTF-8.
  [[nodiscard]] std::string Name() const { return path_.filename().string(); }
  /// The folder that holds the entry; the root is its own parent.
  [[nodiscard]] FolderItem Parent() const { return FolderItem(path_.parent_path()); }
  /// The entry of that name (UTF-8) in this folder, existing or not.
  [[nodiscard]] FolderItem Child(std::string_view name) const;
  /// The entries of this folder by name; none if it is no folder or cannot be read.
  [[nodiscard]] std::vector<FolderItem> Children() const;

  /// Whether there is an entry at the path, a link that points nowhere included. An entry that cannot be looked at does
  /// not exist.
  [[nodiscard]] bool Exists() const;
  [[nodiscard]] bool IsFolder() const;
  [[nodiscard]] bool IsReadable() const;
  /// Whether this user may change the entry: a file's bytes, a folder's list of entries. A running program's file
  /// counts by its permissions. A link counts as writeable: it is replaced, never written through.
  [[nodiscard]] bool IsWriteable() const;

  /// The path for the system's shell (POSIX sh): one word of it, whatever characters the path has.
  [[nodiscard]] std::string ShellPath() const;
  /// The permission bits; none for an entry that is missing or cannot be looked at. Those of a link's target.
  [[nodiscard]] std::filesystem::perms Permissions() const;
  /// Throws a RuntimeException that names the entry if they cannot be set.
  void Permissions(std::filesystem::perms permissions) const;

  /// Gives the entry another name in its folder and returns it under that name. Throws a RuntimeException that names
  /// both if that fails.
  [[nodiscard]] FolderItem Rename(std::string_view name) const;
  /// Creates the entry as a folder, and its parents as far as they are missing. Does not tell whether that worked.
  void CreateAsFolder() const;
  /// Opens the entry as the desktop does for the user: a program is run, a document shown. Does not tell whether that
  /// worked.
  void Launch() const;
  /// Removes the file, link or empty folder. Does not tell whether that worked.
  void Delete() const;

 private:
  std::filesystem::path path_;
};

/// Whether a file keeps its bytes where they are when it gets another name, from one of these folders to the other.
[[nodiscard]] bool AreOnOneDisk(const FolderItem& one, const FolderItem& other);

/// Where temporary files go, the best place first: the system's folder for them, if there is one, and the user's own
/// cache folder.
[[nodiscard]] std::vector<FolderItem> TemporaryPlaces();

// Each of these has an unguessable name. A RuntimeException tells if none can be made.

/// Makes a new, empty folder that only this user can enter (mode 0700).
[[nodiscard]] FolderItem MakeTemporaryFolder(const FolderItem& place);
/// The same in the first of the TemporaryPlaces() that has room for it.
[[nodiscard]] FolderItem MakeTemporaryFolder();
/// Makes a new, empty file that only this user can read (mode 0600).
[[nodiscard]] FolderItem MakeTemporaryFile(const FolderItem& place);
/// The same in the first of the TemporaryPlaces() that has room for it.
[[nodiscard]] FolderItem MakeTemporaryFile();

/// All folders that MakeTemporaryFolder() made for this user, in this run or another one, and that are still there.
[[nodiscard]] std::vector<FolderItem> TemporaryFolders();

}  // namespace toolkit
