#include "support/FileServer.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <httplib.h>

namespace bench {

void ServeFiles(const std::filesystem::path& folder) {
  httplib::Server server;
  server.set_tcp_nodelay(true);
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    std::ifstream stream(file.path(), std::ios::binary);
    std::string content(file.file_size(), '\0');
    stream.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!stream) throw std::runtime_error(file.path().string() + " cannot be read");
    server.Get(std::string("/").append(file.path().filename().string()),
               [content = std::move(content)](const httplib::Request& /*request*/, httplib::Response& response) {
                 response.set_content_provider(
                     content.size(), "application/octet-stream",
                     [&content](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
                       return sink.write(content.data() + offset, length);
                     });
               });
  }
  const int port = server.bind_to_any_port("127.0.0.1");
  if (port <= 0) throw std::runtime_error("no port can be had");
  std::cout << "http://127.0.0.1:" << port << std::endl;
  server.listen_after_bind();
}

}  // namespace bench
