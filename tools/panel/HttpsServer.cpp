#include "panel/HttpsServer.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <syncstream>
#include <sys/socket.h>
#include <thread>

#include "toolkit/HTTPStatus.h"

namespace panel {
namespace {

using namespace std::chrono_literals;

// Clients keep their connections, and each connection occupies a thread: a pool of any size would be exhausted. The
// threads live as long as the program, which ends without waiting for them.
class ThreadPerConnection final : public httplib::TaskQueue {
 public:
  void enqueue(std::function<void()> serve) override { std::thread(std::move(serve)).detach(); }
  void shutdown() override {}
};

// Client input, sanitised for one line of output.
std::string OneLine(const std::string& text) {
  constexpr std::size_t longest = 120;
  std::string line = text.substr(0, longest);
  std::replace_if(
      line.begin(), line.end(), [](unsigned char c) { return c <= ' ' || c == 0x7f; }, '?');
  return text.size() > longest ? line + "..." : line;
}

void Print(const httplib::Request& request, const Reply& reply) {
  std::osyncstream line(std::cout);
  line << OneLine(request.method) << ' ' << OneLine(request.path);
  if (!reply.Container.empty()) line << ' ' << OneLine(reply.Container);
  line << " -> " << reply.Status << '\n' << std::flush_emit;
}

void Send(Reply reply, httplib::Response& response) {
  response.status = reply.Status;
  const auto body = std::make_shared<const std::string>(std::move(reply.Body));
  // Bodies from a provider are never compressed, which would take seconds for a large log.
  response.set_content_provider(body->size(), "application/json",
                                [body](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
                                  return sink.write(body->data() + offset, length);
                                });
}

std::string ExplainStatus(int status) {
  if (status == toolkit::HTTPStatus::notFound) return "There is no such call.";
  return status < 500 ? "The request cannot be understood." : "The service failed.";
}

}  // namespace

HttpsServer::HttpsServer(const Options& options, Service& service)
    : options_(options),
      service_(service),
      certificate_(MakeSelfSignedCertificate()),
      server_(certificate_.X509Certificate.get(), certificate_.Key.get()) {
  if (!server_.is_valid()) throw std::runtime_error("the certificate cannot be used");
  SetUpConnections();
  SetUpReplies();
}

void HttpsServer::SetUpConnections() {
  server_.new_task_queue = [] { return std::make_unique<ThreadPerConnection>().release(); };
  // Otherwise the body of a reply waits for the client's delayed acknowledgement of its headers: 40 ms each.
  server_.set_tcp_nodelay(true);
  server_.set_keep_alive_timeout(std::chrono::seconds(1h).count());
  server_.set_keep_alive_max_count(1'000'000);
  server_.set_read_timeout(60s);
  server_.set_write_timeout(60s);
  // The library would set SO_REUSEPORT: a second program could listen on the same port and get some of the requests.
  server_.set_socket_options([this](socket_t socket) {
    const int on = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    listeningSocket_ = socket;
  });
}

void HttpsServer::SetUpReplies() {
  server_.Post(".*", [this](const httplib::Request& request, httplib::Response& response) {
    Reply reply = service_.Answer(request.path, request.body);
    Print(request, reply);
    Send(std::move(reply), response);
  });
  // For requests that no handler accepts: other methods, malformed HTTP, and failures.
  server_.set_error_handler([](const httplib::Request& request, httplib::Response& response) {
    if (response.has_header("Content-Type")) return;
    Reply reply = MakeRefusal(response.status, ExplainStatus(response.status));
    Print(request, reply);
    Send(std::move(reply), response);
  });
  server_.set_post_routing_handler(
      [this](const httplib::Request&, httplib::Response&) { std::this_thread::sleep_for(options_.Delay); });
}

void HttpsServer::Listen() {
  const std::string host = HostInUrl(options_.Address);
  int port = static_cast<int>(options_.Port);
  const bool isBound = port == 0 ? (port = server_.bind_to_any_port(options_.Address)) > 0
                                 : server_.bind_to_port(options_.Address, port);
  if (!isBound) {
    throw std::runtime_error("cannot listen on " + host + ":" + std::to_string(options_.Port) +
                             ": the port is taken or the address is not of this machine");
  }
  // The library's backlog is five; the SYN of a further connection would be repeated only after a second.
  listen(listeningSocket_, SOMAXCONN);
  std::cout << "Listening on https://" << host << ":" << port << std::endl;
}

void HttpsServer::Serve() { server_.listen_after_bind(); }

}  // namespace panel
