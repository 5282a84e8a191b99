#pragma once

#include <filesystem>

namespace bench {

/// A new folder that only this user can enter. It is removed with this object.
class TemporaryFolder {
 public:
  /// Throws if none can be made.
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace bench
