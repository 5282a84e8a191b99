#include "PanelProgram.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace panel_test {

PanelProgram::PanelProgram(const std::string& arguments) {
  // Its input ends when this process does, however that happens.
  std::array<int, 2> input{};
  if (pipe2(input.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const int inherited = dup(input[0]);
  const std::string shell = "echo $$; exec '" PANEL_PROGRAM "' " + arguments + " </dev/fd/" + std::to_string(inherited);
  output_ = popen(shell.c_str(), "r");
  close(input[0]);
  close(inherited);
  stdin_ = input[1];
  pid_ = std::stoi(Read('\n'));
}

PanelProgram::~PanelProgram() {
  CloseStdin();
  if (output_ == nullptr) return;
  Send(SIGKILL);
  Wait();
}

std::string PanelProgram::Read(int until) {
  std::string text;
  for (int c = 0; (c = std::getc(output_)) != EOF && c != until;) text += static_cast<char>(c);
  return text;
}

void PanelProgram::Send(int signal) const { kill(pid_, signal); }

void PanelProgram::CloseStdin() {
  if (stdin_ >= 0) close(stdin_);
  stdin_ = -1;
}

int PanelProgram::Wait() {
  const int status = pclose(output_);
  output_ = nullptr;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

Panel::Panel(const std::string& arguments)
    : program(arguments + " --port=0 --user ann --password=s3cret --until-stdin-closes") {
  const std::string start = "Listening on https://127.0.0.1:";
  const std::string first = program.Read('\n');
  if (first.substr(0, start.size()) != start) throw std::runtime_error("unexpected first line: " + first);
  port = std::stoi(first.substr(start.size()));
  client = NewClient();
}

std::unique_ptr<httplib::SSLClient> Panel::NewClient() const {
  auto made = std::make_unique<httplib::SSLClient>("127.0.0.1", port);
  made->enable_server_certificate_verification(false);
  made->set_keep_alive(true);
  made->set_tcp_nodelay(true);
  made->set_read_timeout(30);
  return made;
}

Panel::Answer Panel::Call(const std::string& path, const boost::json::object& members) const {
  boost::json::object body{{"username", "ann"}, {"password", "s3cret"}};
  for (const auto& member : members) body.insert_or_assign(member.key(), member.value());
  return Post(path, boost::json::serialize(body));
}

Panel::Answer Panel::Post(const std::string& path, const std::string& body) const {
  const httplib::Result result = client->Post(path, body, "application/json");
  if (!result) return {};
  return {result->status, boost::json::parse(result->body).as_object(), result->body.size()};
}

}  // namespace panel_test
