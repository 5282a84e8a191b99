#include "toolkit/qt/PictureDecoder.h"

#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "toolkit/BinaryStream.h"
#include "toolkit/qt/DecoderProgram.h"

namespace toolkit::qt {
namespace {

// RLIMIT_CPU ends a process that computes for too long. This limit is for one that gets no processor time.
constexpr std::chrono::seconds longestWait(10);
constexpr std::chrono::milliseconds betweenTries(10);

/// Only one process runs at a time, to limit the memory.
bool& IsOneAtWork() {
  static bool isAtWork = false;
  return isAtWork;
}

/// Starts this program again, without its open files and sockets. Returns 0 if that fails.
pid_t StartDecoder(int input, int output, int mostWidth) {
  std::string program = "/proc/self/exe";
  std::string option(decoderOption);
  std::string width = std::to_string(mostWidth);
  const std::array<char*, 4> arguments{program.data(), option.data(), width.data(), nullptr};
  posix_spawn_file_actions_t files{};
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
  posix_spawnattr_t handling{};
  posix_spawnattr_init(&handling);
  sigset_t set{};
  sigemptyset(&set);
  posix_spawnattr_setsigmask(&handling, &set);
  sigfillset(&set);
  posix_spawnattr_setsigdefault(&handling, &set);
  posix_spawnattr_setflags(&handling, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  pid_t process = 0;
  const int error = posix_spawn(&process, program.c_str(), &files, &handling, arguments.data(), environ);
  posix_spawnattr_destroy(&handling);
  posix_spawn_file_actions_destroy(&files);
  return error == 0 ? process : 0;
}

/// The output of a decoder. All of it is checked, since the picture may have taken the process over.
QImage ReadPicture(int file, int mostWidth) {
  DecodedSize size{};
  if (pread(file, &size, sizeof size, 0) != sizeof size || !size.IsWithin(mostWidth)) return {};
  QImage picture(size.Width, size.Height, QImage::Format_ARGB32_Premultiplied);
  if (picture.isNull()) return {};
  const ssize_t length = pread(file, picture.bits(), static_cast<std::size_t>(picture.sizeInBytes()), sizeof size);
  return length == picture.sizeInBytes() ? picture : QImage();
}

}  // namespace

PictureDecoder::PictureDecoder(std::string_view encoded, int mostWidth, Decoded decoded)
    : mostWidth_(mostWidth),
      decoded_(std::move(decoded)),
      input_(memfd_create("encoded", MFD_CLOEXEC)),
      output_(memfd_create("decoded", MFD_CLOEXEC)) {
  BinaryStream(dup(input_)).Write(encoded);  // if the memory is exhausted, the end of the picture is missing
  deadline_.setSingleShot(true);
  QObject::connect(&deadline_, &QTimer::timeout, [this] { Go(); });
  deadline_.start(0);
}

PictureDecoder::~PictureDecoder() {
  End();
  close(input_);
  close(output_);
}

void PictureDecoder::Go() {
  if (process_ == 0 && IsOneAtWork()) return deadline_.start(betweenTries);
  if (process_ == 0) process_ = StartDecoder(input_, output_, mostWidth_);
  if (process_ == 0 || ended_) return Finish();
  IsOneAtWork() = true;
  ended_ = std::make_unique<QSocketNotifier>(syscall(SYS_pidfd_open, process_, 0), QSocketNotifier::Read);
  QObject::connect(ended_.get(), &QSocketNotifier::activated, [this] { Finish(); });
  deadline_.start(longestWait);
}

void PictureDecoder::End() {
  deadline_.stop();
  if (process_ == 0) return;
  IsOneAtWork() = false;
  ended_->setEnabled(false);
  close(static_cast<int>(ended_->socket()));
  kill(process_, SIGKILL);
  waitpid(std::exchange(process_, 0), nullptr, 0);
}

void PictureDecoder::Finish() {
  End();
  const auto decoded = decoded_;  // the call may destroy this object
  decoded(ReadPicture(output_, mostWidth_));
}

}  // namespace toolkit::qt
