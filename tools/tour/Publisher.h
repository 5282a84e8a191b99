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

/// A publisher of updates on this machine, with its own web server and key. It offers two versions; the hash of the
/// older one's file is wrong.
class Publisher {
 public:
  /// Packs the archive in `folder`, running the event loop meanwhile. Throws std::runtime_error if it cannot start.
  explicit Publisher(const toolkit::FolderItem& folder);
  Publisher(const Publisher&) = delete;
  Publisher& operator=(const Publisher&) = delete;
  ~Publisher();

  /// The address of the signed document.
  [[nodiscard]] std::string UpdateURL() const { return url_ + "/updates"; }
  /// The key that verifies its signature, in the form of toolkit::RSAVerifySignature().
  [[nodiscard]] const std::string& PublicKey() const { return publicKey_; }
  [[nodiscard]] static std::string NewerVersion();
  [[nodiscard]] static std::string OlderVersion();

  /// The second half of an archive is sent very slowly until this is called.
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
