#include "toolkit/Shell.h"

#include <unistd.h>
#include <utility>

#include "toolkit/Platform.h"

namespace toolkit {

void Shell::Execute(const std::string& commandLine) {
  Close();
  end_ = {};
  runningMode_ = Mode;
  process_ = Platform::Current().StartProcess(commandLine, [this](ProcessEnd end) { Ended(std::move(end)); });
  if (runningMode_ == RunMode::Synchronous) Platform::Current().RunEventsUntil([this] { return !IsRunning(); });
}

void Shell::Close() {
  if (const auto process = std::exchange(process_, nullptr)) process->Kill();
}

void Shell::Ended(ProcessEnd end) {
  end_ = std::move(end);
  process_ = nullptr;
  if (runningMode_ == RunMode::Asynchronous) Event_Completed();
}

std::string Environment() {
  std::string entries;
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) entries.append(*entry) += '\0';
  return entries;
}

}  // namespace toolkit
