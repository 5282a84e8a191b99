#pragma once

#include <functional>
#include <memory>
#include <string>

namespace toolkit {

/// The result of a child process.
struct ProcessEnd {
  /// The exit code; 128 + the signal's number if a signal ended it, 127 if it could not be started.
  int ExitCode = 0;
  /// Its output, standard output and error interleaved, possibly truncated by the platform.
  std::string Output;
};

/// A running child process. Destroying the object does not affect the process.
class ChildProcess {
 public:
  virtual ~ChildProcess() = default;
  /// Kills the process and its descendants that have not detached. `ended` is not called any more.
  virtual void Kill() = 0;
};

/// Runs command lines in the system's shell (POSIX sh), one at a time.
class Shell {
 public:
  enum class RunMode { Synchronous = 0, Asynchronous = 1 };

  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  RunMode Mode = RunMode::Synchronous;

  /// Runs a command line. A synchronous shell runs the event loop until it has ended; an asynchronous one returns at
  /// once and reports the end by Event_Completed. A command that is still running is killed.
  void Execute(const std::string& commandLine);
  /// The exit code of the last command, 0 for success; see ProcessEnd.
  [[nodiscard]] int ErrorCode() const { return end_.ExitCode; }
  [[nodiscard]] const std::string& Result() const { return end_.Output; }
  [[nodiscard]] bool IsRunning() const { return process_ != nullptr; }
  /// Kills the running command, if there is one, without any event.
  void Close();

 protected:
  /// An asynchronous command has ended. The object may be destroyed in this call.
  virtual void Event_Completed() {}

 private:
  void Ended(ProcessEnd end);

  ProcessEnd end_;
  RunMode runningMode_ = RunMode::Synchronous;
  std::unique_ptr<ChildProcess> process_;
};

/// The environment that child processes inherit: each entry is followed by a NUL.
[[nodiscard]] std::string Environment();

}  // namespace toolkit
