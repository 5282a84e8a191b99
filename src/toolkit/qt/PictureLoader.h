#pragma once

#include <functional>
#include <string>

#include "toolkit/HTTPSocket.h"

namespace toolkit::qt {

/// Loads one picture over HTTP, from a server that shows a valid certificate if it uses TLS, through a few redirects.
class PictureLoader final : private HTTPSocket {
 public:
  /// How the loading ended. May destroy the loader.
  struct Events {
    std::function<void(std::string encoded)> Loaded;
    /// The HTTP status, or 0 if there is none, and why.
    std::function<void(int status, const std::string& why)> Failed;
  };

  PictureLoader(const std::string& url, std::uint64_t largest, Events events);
  ~PictureLoader() override { Disconnect(); }

 private:
  void Event_Error(const RuntimeException& error) override;
  void Event_FileReceived(const std::string& /*url*/, int /*status*/, const FolderItem& /*file*/) override {}
  void Event_HeadersReceived(const std::string& /*url*/, int /*status*/) override {}
  void Event_PageReceived(const std::string& url, int status, std::string content) override;
  void Event_ReceiveProgress(std::uint64_t /*received*/, std::optional<std::uint64_t> /*total*/) override {}
  void Event_SendProgress(std::uint64_t /*sent*/, std::uint64_t /*total*/) override {}

  Events events_;
  int redirectsLeft_;
};

/// Whether the address is one of http or https.
[[nodiscard]] bool IsHTTPAddress(const std::string& url);

}  // namespace toolkit::qt
