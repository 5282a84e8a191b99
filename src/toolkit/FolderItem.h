#pragma once

#include <filesystem>
#include <string_view>

namespace toolkit {

/// A reference to a file or folder by its path, whether it exists or not.
class FolderItem {
 public:
  explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

  /// The entry of that name (UTF-8) in this folder, existing or not.
  [[nodiscard]] FolderItem Child(std::string_view name) const;
  /// Whether there is an entry at the path. An entry that cannot be looked at does not exist.
  [[nodiscard]] bool Exists() const;
  /// Creates the entry as a folder, and its parents as far as they are missing. Does not tell whether that worked.
  void CreateAsFolder() const;
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace toolkit
