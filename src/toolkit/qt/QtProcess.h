#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QProcess>

#include "toolkit/Shell.h"

namespace toolkit::qt {

/// A command line in /bin/sh, in a process group of its own. The first megabyte of its output is kept.
class QtProcess final : public ChildProcess {
 public:
  QtProcess(const std::string& commandLine, std::function<void(ProcessEnd)> ended);
  QtProcess(const QtProcess&) = delete;
  QtProcess& operator=(const QtProcess&) = delete;
  ~QtProcess() override;

  void Kill() override;

 private:
  [[nodiscard]] std::string Output() const;
  void Tell(int exitCode);

  std::unique_ptr<QProcess> process_;
  // The context of the process's signals. Destroying it disconnects them.
  std::unique_ptr<QObject> listener_;
  std::function<void(ProcessEnd)> ended_;
  bool hasEnded_ = false;
  // A file in memory. With a pipe, whatever the command left running in the background would be killed on its next
  // write once this object or the program is gone.
  int output_;
};

}  // namespace toolkit::qt
