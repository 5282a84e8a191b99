#pragma once

#include <string>
#include <string_view>

#include "toolkit/FolderItem.h"

namespace toolkit::http {

/// The certificate authorities that are trusted.
class Authorities {
 public:
  /// The system's authorities below `root`, wherever the distribution keeps them.
  explicit Authorities(const FolderItem& root = FolderItem("/"));

  /// Adds a certificate in PEM.
  void Add(std::string_view certificate) { added_.append(certificate).append("\n"); }

  /// The system's authorities as a file of PEM; empty if there is none at a known path.
  [[nodiscard]] const std::string& SystemFile() const { return systemFile_; }
  /// The same as a folder with one file each, named by OpenSSL's hash; empty if there is none. Only the needed file is
  /// read, while the single file costs 40 ms and 1 MB.
  [[nodiscard]] const std::string& SystemFolder() const { return systemFolder_; }
  [[nodiscard]] bool HasAdded() const { return !added_.empty(); }
  /// All of them, as PEM.
  [[nodiscard]] std::string All() const;

 private:
  std::string systemFile_;
  std::string systemFolder_;
  std::string added_;
};

}  // namespace toolkit::http
