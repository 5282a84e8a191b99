#include "support/ChildProcess.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {
namespace {

constexpr int statusOfNoProgram = 127;
constexpr int pipeSize = 1 << 20;

[[noreturn]] void Become(const std::vector<char*>& arguments, int output, ErrorOutput errors, pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) std::_Exit(EXIT_FAILURE);
  dup2(output, STDOUT_FILENO);
  if (errors == ErrorOutput::Dropped) dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
  execvp(arguments.front(), arguments.data());
  std::_Exit(statusOfNoProgram);
}

}  // namespace

ChildProcess::ChildProcess(std::vector<std::string> command, ErrorOutput errors) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  std::array<int, 2> pipe{};
  if (pipe2(pipe.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe can be made");
  // A large pipe, so that a program whose output nobody reads does not block.
  fcntl(pipe[1], F_SETPIPE_SZ, pipeSize);
  const pid_t parent = getpid();
  id_ = fork();
  if (id_ == 0) Become(arguments, pipe[1], errors, parent);
  close(pipe[1]);
  output_ = pipe[0];
  if (id_ < 0) throw std::runtime_error(command.front() + " cannot be started");
}

ChildProcess::~ChildProcess() {
  close(output_);
  if (id_ < 0) return;
  kill(id_, SIGTERM);
  waitpid(id_, nullptr, 0);
}

std::string ChildProcess::ReadLine() {
  std::string line;
  char next = 0;
  while (read(output_, &next, 1) == 1) {
    if (next == '\n') return line;
    line += next;
  }
  throw std::runtime_error("a program ended that was to go on");
}

void ChildProcess::Wait() {
  int status = 0;
  waitpid(id_, &status, 0);
  id_ = -1;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != EXIT_SUCCESS) throw std::runtime_error("a program failed");
}

std::string BuiltProgram(const std::string& name) {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

}  // namespace bench
