#include "PanelProgram.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace panel_test {
namespace {

std::array<int, 2> MakePipe() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return ends;
}

std::string ReadAll(int descriptor) {
  std::string all;
  std::array<char, 4096> part{};
  for (ssize_t size = 0; (size = read(descriptor, part.data(), part.size())) > 0;) {
    all.append(part.data(), static_cast<std::size_t>(size));
  }
  return all;
}

}  // namespace

PanelProgram::PanelProgram(const std::vector<std::string>& arguments) {
  const auto in = MakePipe();
  const auto out = MakePipe();
  const auto err = MakePipe();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
  std::vector<std::string> words{PANEL_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const int failure = posix_spawn(&pid_, PANEL_PROGRAM, &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  for (const int end : {in[0], out[1], err[1]}) close(end);
  stdin_ = in[1];
  stdout_ = out[0];
  stderr_ = err[0];
  if (failure != 0) throw std::runtime_error("corvane-panel does not start");
}

PanelProgram::~PanelProgram() {
  if (pid_ != 0) {
    Send(SIGKILL);
    Wait();
  }
  for (const int end : {stdin_, stdout_, stderr_}) close(end);
}

std::string PanelProgram::ReadLine() const {
  std::string line;
  for (char c = 0; read(stdout_, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

void PanelProgram::Send(int signal) const { kill(pid_, signal); }

void PanelProgram::CloseStdin() {
  close(stdin_);
  stdin_ = -1;
}

int PanelProgram::Wait() {
  int status = 0;
  waitpid(pid_, &status, 0);
  pid_ = 0;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

std::string PanelProgram::Output() const { return ReadAll(stdout_); }
std::string PanelProgram::ErrorOutput() const { return ReadAll(stderr_); }

Panel::Panel(std::vector<std::string> arguments)
    : program([&] {
        arguments.insert(arguments.end(), {"--port=0", "--user", "ann", "--password=s3cret", "--until-stdin-closes"});
        return arguments;
      }()) {
  const std::string first = program.ReadLine();
  const std::string start = "Listening on https://127.0.0.1:";
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
  return {result->status, boost::json::parse(result->body).as_object()};
}

}  // namespace panel_test
