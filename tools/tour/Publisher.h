#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "toolkit/FolderItem.h"

namespace httplib {
class Server;
}

namespace tour {

/// A publisher of updates on this machine, with a web server and a key of its own. Two versions are on offer. The file
/// of the older one is not the one that its document tells of.
class Publisher {
 public:
  /// Packs the archive in `folder`; the event loop runs meanwhile. Throws std::runtime_error if it cannot start.
  explicit Publisher(const toolkit::FolderItem& folder);
  Publisher(const Publisher&) = delete;
  Publisher& operator=(const Publisher&) = delete;
  ~Publisher();

  /// Where the signed document lies.
  [[nodiscard]] std::string UpdateURL() const { return url_ + "/updates"; }
  /// What it is signed with, in the form of toolkit::RSAVerifySignature().
  [[nodiscard]] const std::string& PublicKey() const { return publicKey_; }
  [[nodiscard]] static std::string NewerVersion();
  [[nodiscard]] static std::string OlderVersion();

  /// An archive comes at a crawl from its middle on, until this is called.
  void HurryUp() { isHurried_ = true; }

 private:
  void ServeArchive();
  [[nodiscard]] std::string Document() const;

  std::unique_ptr<httplib::Server> server_;
  std::string url_;
  std::string publicKey_;
  std::string archive_;
  std::atomic<bool> isHurried_ = false;
  std::thread thread_;
};

}  // namespace tour
