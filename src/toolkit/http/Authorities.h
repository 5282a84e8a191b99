#pragma once

#include <string>
#include <string_view>

#include "toolkit/FolderItem.h"

namespace toolkit::http {

/// Whose signature makes a server's certificate a trusted one.
class Authorities {
 public:
  /// Those of the system that lies under `root`, wherever its distribution keeps them.
  explicit Authorities(const FolderItem& root = FolderItem("/"));

  /// Adds a certificate in PEM.
  void Add(std::string_view certificate) { added_.append(certificate).append("\n"); }

  /// The system's, as a file of PEM; empty if there is none at a known place.
  [[nodiscard]] const std::string& SystemFile() const { return systemFile_; }
  /// The same, as a folder with a file for each, by the hash of its name as OpenSSL wants it; empty if there is none.
  /// Of it only the one that is needed is read, where the file takes 40 ms and 1 MB.
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
