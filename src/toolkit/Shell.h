#pragma once

#include <functional>
#include <memory>
#include <string>

namespace toolkit {

/// How a child process ended.
struct ProcessEnd {
  /// The exit code; 128 and the signal's number if a signal ended it, 127 if it could not be started.
  int ExitCode = 0;
  /// What it wrote, standard output and error in the order of writing, as far as the platform keeps it.
  std::string Output;
};

/// A running child process. Belongs to the platform. Letting go of it leaves the process alone.
class ChildProcess {
 public:
  virtual ~ChildProcess() = default;
  /// Ends the process and all that it started and did not detach. Nothing is told of it any more.
  virtual void Kill() = 0;
};

/// Runs command lines of the system's shell (POSIX sh), one at a time.
class Shell {
 public:
  enum class RunMode { Synchronous = 0, Asynchronous = 1 };

  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  RunMode Mode = RunMode::Synchronous;

  /// Runs a command line. A synchronous shell waits for its end, and the event loop runs meanwhile; an asynchronous one
  /// returns at once and tells the end by Event_Completed. A command that is running already is closed.
  void Execute(const std::string& commandLine);
  /// How the last command ended, 0 for success; see ProcessEnd.
  [[nodiscard]] int ErrorCode() const { return end_.ExitCode; }
  [[nodiscard]] const std::string& Result() const { return end_.Output; }
  [[nodiscard]] bool IsRunning() const { return process_ != nullptr; }
  /// Ends the command that is running, if there is one, without any event.
  void Close();

 protected:
  /// An asynchronous command has ended. The object may be destroyed here.
  virtual void Event_Completed() {}

 private:
  void Ended(ProcessEnd end);

  ProcessEnd end_;
  RunMode runningMode_ = RunMode::Synchronous;
  std::unique_ptr<ChildProcess> process_;
};

/// What a program that is started from this one has in its environment: each entry with a NUL behind it.
[[nodiscard]] std::string Environment();

}  // namespace toolkit
