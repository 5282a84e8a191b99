#include "toolkit/qt/QtProcess.h"

#include <algorithm>
#include <csignal>
#include <unistd.h>
#include <utility>

#include "toolkit/Platform.h"
#include "toolkit/qt/QtText.h"

namespace toolkit::qt {
namespace {

constexpr std::size_t mostOutput = 1'000'000;
constexpr int couldNotStart = 127;
constexpr int endedBySignal = 128;

}  // namespace

QtProcess::QtProcess(const std::string& commandLine, std::function<void(ProcessEnd)> ended)
    : process_(std::make_unique<QProcess>()), ended_(std::move(ended)) {
  process_->setProcessChannelMode(QProcess::MergedChannels);
  process_->setStandardInputFile(QProcess::nullDevice());
  process_->setChildProcessModifier([] { setpgid(0, 0); });
  QObject::connect(process_.get(), &QProcess::readyRead, [this] { KeepOutput(); });
  QObject::connect(process_.get(), &QProcess::finished, [this](int code, QProcess::ExitStatus status) {
    Tell(status == QProcess::NormalExit ? code : endedBySignal + code);
  });
  QObject::connect(process_.get(), &QProcess::errorOccurred, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) Tell(couldNotStart);
  });
  process_->start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), ToQt(commandLine)});
}

// Qt ends a process together with the object for it. One that still runs goes without: it is to live on.
QtProcess::~QtProcess() {
  process_->disconnect();
  if (process_->state() == QProcess::NotRunning) {
    process_.release()->deleteLater();  // it may be what calls
  } else {
    process_.release();  // NOLINT(bugprone-unused-return-value)
  }
}

void QtProcess::Kill() {
  process_->disconnect();
  if (process_->state() == QProcess::NotRunning) return;
  kill(-static_cast<pid_t>(process_->processId()), SIGKILL);
  process_->waitForFinished();
}

void QtProcess::KeepOutput() {
  const QByteArray bytes = process_->readAll();
  output_.append(bytes.constData(), std::min(static_cast<std::size_t>(bytes.size()), mostOutput - output_.size()));
}

void QtProcess::Tell(int exitCode) {
  KeepOutput();
  const auto ended = std::move(ended_);
  Platform::Current().Dispatch([&] { ended({.ExitCode = exitCode, .Output = std::move(output_)}); });
}

}  // namespace toolkit::qt
