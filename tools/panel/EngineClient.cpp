#include "panel/EngineClient.h"

#include <sys/socket.h>

#include <boost/json/parse.hpp>
#include <httplib.h>

#include "panel/Fleet.h"
#include "panel/Json.h"
#include "toolkit/HTTPStatus.h"

namespace panel {
namespace {

namespace json = boost::json;
using namespace std::chrono_literals;

httplib::Client Connect(const std::string& socketPath, std::chrono::seconds patience) {
  httplib::Client client(socketPath);
  client.set_address_family(AF_UNIX);
  // Otherwise the path would be sent as the Host header, which engines reject.
  client.set_default_headers({{"Host", "localhost"}});
  client.set_connection_timeout(5s);
  client.set_read_timeout(patience);
  client.set_write_timeout(5s);
  return client;
}

// The engine's own explanation if there is one.
std::string MessageIn(const std::string& body, int status) {
  boost::system::error_code error;
  const json::value parsed = json::parse(body, error);
  const std::string message = !error && parsed.is_object() ? TextOf(parsed.get_object(), "message") : "";
  return message.empty() ? "status " + std::to_string(status) : message;
}

EngineClient::Answer Check(httplib::Result result) {
  if (!result && result.error() == httplib::Error::Connection) {
    throw Refusal("The container engine cannot be reached.");
  }
  if (!result) throw Refusal("The container engine did not answer to the end.");
  if (result->status >= toolkit::HTTPStatus::badRequest) {
    throw Refusal("The container engine refused: " + MessageIn(result->body, result->status));
  }
  return {result->status, std::move(result->body)};
}

}  // namespace

EngineClient::Answer EngineClient::Get(const std::string& path, std::chrono::seconds patience) const {
  return Check(Connect(socketPath_, patience).Get(path));
}

EngineClient::Answer EngineClient::Post(const std::string& path, const std::string& body,
                                        std::chrono::seconds patience) const {
  return Check(Connect(socketPath_, patience).Post(path, body, "application/json"));
}

json::value EngineClient::GetJson(const std::string& path, std::chrono::seconds patience) const {
  boost::system::error_code error;
  json::value parsed = json::parse(Get(path, patience).Body, error);
  if (error) throw Refusal("The container engine's answer cannot be understood.");
  return parsed;
}

}  // namespace panel
