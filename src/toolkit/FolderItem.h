#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace toolkit {

/// A reference to a file or folder by its path, whether it exists or not. A symbolic link is an entry of its own: it is
/// not a folder, and operations on it do not affect its target.
class FolderItem {
 public:
  explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// The last component of the path, in UTF-8.
  [[nodiscard]] std::string Name() const { return path_.filename().string(); }
  /// The parent folder; the root is its own parent.
  [[nodiscard]] FolderItem Parent() const { return FolderItem(path_.parent_path()); }
  /// The entry with that name (UTF-8) in this folder, existing or not.
  [[nodiscard]] FolderItem Child(std::string_view name) const;
  /// The entries of this folder, sorted by name; empty if it is not a folder or cannot be read.
  [[nodiscard]] std::vector<FolderItem> Children() const;

  /// Whether there is an entry at the path, including a dangling link. False for an entry that cannot be accessed.
  [[nodiscard]] bool Exists() const;
  [[nodiscard]] bool IsFolder() const;
  [[nodiscard]] bool IsReadable() const;
  /// Whether this user may change the entry: a file's bytes, a folder's list of entries. For the file of a running
  /// program the permissions decide. A link is writeable: it is replaced, never written through.
  [[nodiscard]] bool IsWriteable() const;

  /// The path as one word for the system's shell (POSIX sh), whatever characters it contains.
  [[nodiscard]] std::string ShellPath() const;
  /// The permission bits, of a link's target; none if the entry is missing or cannot be accessed.
  [[nodiscard]] std::filesystem::perms Permissions() const;
  /// Throws a RuntimeException that names the entry if they cannot be set.
  void Permissions(std::filesystem::perms permissions) const;

  /// Renames the entry within its folder and returns it under the new name. Throws a RuntimeException that names both
  /// if that fails.
  [[nodiscard]] FolderItem Rename(std::string_view name) const;
  /// Creates the entry as a folder, with its missing parents. Failures are not reported.
  void CreateAsFolder() const;
  /// Opens the entry with the desktop's default application: a program is run, a document shown. Failures are not
  /// reported.
  void Launch() const;
  /// Removes the file, link or empty folder. Failures are not reported.
  void Delete() const;

 private:
  std::filesystem::path path_;
};

/// Whether a file can be moved from one of these folders to the other without copying its bytes.
[[nodiscard]] bool AreOnOneDisk(const FolderItem& one, const FolderItem& other);

/// The folders for temporary files, in order of preference: the system's, if there is one, and the user's cache folder.
[[nodiscard]] std::vector<FolderItem> TemporaryPlaces();

// Each of these creates an entry with an unguessable name, and throws a RuntimeException if that fails.

/// Creates an empty folder that only this user can enter (mode 0700).
[[nodiscard]] FolderItem MakeTemporaryFolder(const FolderItem& place);
/// The same in the first of the TemporaryPlaces() where that succeeds.
[[nodiscard]] FolderItem MakeTemporaryFolder();
/// Creates an empty file that only this user can read (mode 0600).
[[nodiscard]] FolderItem MakeTemporaryFile(const FolderItem& place);
/// The same in the first of the TemporaryPlaces() where that succeeds.
[[nodiscard]] FolderItem MakeTemporaryFile();

/// All existing folders that MakeTemporaryFolder() created for this user, in this run or an earlier one.
[[nodiscard]] std::vector<FolderItem> TemporaryFolders();

}  // namespace toolkit
