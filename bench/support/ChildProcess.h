#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace bench {

enum class ErrorOutput { Shown, Dropped };

/// A running child process. It ends with this object, and with this process however that ends.
class ChildProcess {
 public:
  /// Starts the program `command.front()`, looked up in PATH if it has no slash. Throws if it cannot be started.
  explicit ChildProcess(std::vector<std::string> command, ErrorOutput errors = ErrorOutput::Shown);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  /// Terminates the program and waits for its end.
  ~ChildProcess();

  [[nodiscard]] pid_t Id() const { return id_; }
  /// Waits for the next line of its output, without the line break. Throws at the end of the output.
  std::string ReadLine();
  /// Waits until the program ends by itself. Throws unless its status is 0.
  void Wait();

 private:
  pid_t id_ = -1;
  int output_ = -1;
};

/// The path of the program `name` that was built beside the running one.
[[nodiscard]] std::string BuiltProgram(const std::string& name);

}  // namespace bench
