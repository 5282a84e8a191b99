#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QProcess>

#include "toolkit/Shell.h"

namespace toolkit::qt {

/// A command line in /bin/sh, in a process group of its own. Of what it writes, the first megabyte is kept.
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
  // Receives what the process tells. Without it, nothing is told any more.
  std::unique_ptr<QObject> listener_;
  std::function<void(ProcessEnd)> ended_;
  bool hasEnded_ = false;
  // A file in memory. A pipe would end with this object, or with the program, and whatever the command left in the
  // background would be killed as soon as it writes.
  int output_;
};

}  // namespace toolkit::qt
