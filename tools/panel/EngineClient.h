#pragma once

#include <chrono>
#include <string>

#include <boost/json/value.hpp>

namespace panel {

/// Sends requests to a container engine over its Unix socket. Each uses its own connection, so several threads may use
/// the client.
class EngineClient {
 public:
  explicit EngineClient(std::string socketPath) : socketPath_(std::move(socketPath)) {}

  struct Answer {
    int Status = 0;  ///< Less than 400.
    std::string Body;
  };
  /// Throw Refusal if the engine cannot be reached, is silent for longer than `patience`, or closes the connection;
  /// and, with the engine's own message, for a status of 400 or more.
  [[nodiscard]] Answer Get(const std::string& path, std::chrono::seconds patience) const;
  [[nodiscard]] Answer Post(const std::string& path, const std::string& body, std::chrono::seconds patience) const;
  /// The body of a Get() as JSON. Also throws Refusal if it is not JSON.
  [[nodiscard]] boost::json::value GetJson(const std::string& path, std::chrono::seconds patience) const;

 private:
  std::string socketPath_;
};

}  // namespace panel
