#include "toolkit/qt/QtProcess.h"

#include <algorithm>
#include <csignal>
#include <linux/close_range.h>
#include <optional>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

#include <QCoreApplication>
#include <QPointer>
#include <QProcessEnvironment>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr off_t mostOutput = 1'000'000;
constexpr int couldNotStart = 127;
constexpr int endedBySignal = 128;
// A killed process ends at once, unless it is blocked inside the kernel.
constexpr int longestWaitInMilliseconds = 5000;

/// A QProcess whose destructor does not kill the process.
class LastingProcess final : public QProcess {
 public:
  LastingProcess() = default;
  LastingProcess(const LastingProcess&) = delete;
  LastingProcess& operator=(const LastingProcess&) = delete;
  ~LastingProcess() override { setProcessState(NotRunning); }
};

/// Called between fork and exec: only async-signal-safe calls. The child gets its own process group and the default
/// signal handlers, and inherits no files and sockets.
void PrepareChild() {
  setpgid(0, 0);
  for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
}

/// The user's environment without the variables of the dynamic loader; std::nullopt if there are none, since Qt would
/// drop malformed entries.
std::optional<QProcessEnvironment> EnvironmentOfTools() {
  auto environment = QProcessEnvironment::systemEnvironment();
  bool isOther = false;
  for (const QString& name : environment.keys()) {
    if (!name.startsWith(QLatin1String("LD_"))) continue;
    environment.remove(name);
    isOther = true;
  }
  return isOther ? std::optional(environment) : std::nullopt;
}

}  // namespace

QtProcess::QtProcess(const std::string& commandLine, std::function<void(ProcessEnd)> ended)
    : process_(std::make_unique<LastingProcess>()),
      listener_(std::make_unique<QObject>()),
      ended_(std::move(ended)),
      output_(memfd_create("output", MFD_CLOEXEC)) {
  process_->setProcessChannelMode(QProcess::MergedChannels);
  process_->setStandardOutputFile(QStringLiteral("/proc/self/fd/%1").arg(output_));
  process_->setStandardInputFile(QProcess::nullDevice());
  process_->setChildProcessModifier(PrepareChild);
  if (const auto environment = EnvironmentOfTools()) process_->setProcessEnvironment(*environment);
  QObject::connect(process_.get(), &QProcess::finished, listener_.get(), [this](int code, QProcess::ExitStatus status) {
    Tell(status == QProcess::NormalExit ? code : endedBySignal + code);
  });
  // A failure to start can be detected within start(), but is reported later.
  QObject::connect(
      process_.get(), &QProcess::errorOccurred, listener_.get(),
      [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) Tell(couldNotStart);
      },
      Qt::QueuedConnection);
  process_->start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), ToQt(commandLine)});
  // The child does the same. Whichever is first, the group exists before it can be killed.
  if (const auto child = static_cast<pid_t>(process_->processId()); child > 0) setpgid(child, child);
}

// The process may be the caller. One that is still running continues, and must be reaped.
QtProcess::~QtProcess() {
  close(output_);
  listener_.reset();
  QProcess* left = process_.release();
  left->setParent(QCoreApplication::instance());
  if (left->state() == QProcess::NotRunning) {
    left->deleteLater();
  } else {
    QObject::connect(left, &QProcess::finished, left, &QObject::deleteLater);
  }
}

void QtProcess::Kill() {
  listener_.reset();
  if (process_->state() == QProcess::NotRunning) return;
  kill(-static_cast<pid_t>(process_->processId()), SIGKILL);
  process_->waitForFinished(longestWaitInMilliseconds);
}

std::string QtProcess::Output() const {
  std::string output(static_cast<std::size_t>(std::clamp<off_t>(lseek(output_, 0, SEEK_END), 0, mostOutput)), '\0');
  const ssize_t length = pread(output_, output.data(), output.size(), 0);
  output.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
  return output;
}

void QtProcess::Tell(int exitCode) {
  if (std::exchange(hasEnded_, true)) return;
  Platform::Current().WhenFree([this, exitCode, listener = QPointer(listener_.get())] {
    if (!listener) return;
    const auto ended = ended_;  // this object may be destroyed in it
    ended({.ExitCode = exitCode, .Output = Output()});
  });
}

}  // namespace toolkit::qt
