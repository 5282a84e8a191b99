// Loaded into a program, and into the tools that it runs. Counts what changes files, over all processes, by the length
// of the file LD_FAULT_COUNT, and lets the call number LD_FAULT_AT fail with the error LD_FAULT_ERROR, or kills the
// process group there if that is 0. Negative numbers: every call from there on that takes space. With LD_FAULT_SLEEPS,
// sleeping takes no time, and each sleep is a line in that file. The system log is at LD_FAULT_LOG.

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

enum class Call { Plain, TakesSpace, HardLink, Exchange };

int Number(const char* name) {
  const char* text = std::getenv(name);
  return text == nullptr ? 0 : std::atoi(text);
}

// Adds a byte to a file by system calls of its own and returns its length then.
long Append(const char* variable) {
  const char* path = std::getenv(variable);
  if (path == nullptr) return 0;
  const auto file = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND, 0600));
  syscall(SYS_write, file, "\n", 1);
  const off_t length = lseek(file, 0, SEEK_CUR);
  syscall(SYS_close, file);
  return length;
}

bool Fails(Call call) {
  if (std::strcmp(program_invocation_short_name, "sh") == 0) return false;  // the program that is updated
  const bool takesSpace = call == Call::TakesSpace || call == Call::HardLink;
  if ((call == Call::HardLink || call == Call::Exchange) && Number("LD_FAULT_POOR") != 0) {
    errno = EPERM;
    return true;
  }
  const long count = Append("LD_FAULT_COUNT");
  const int at = Number("LD_FAULT_AT");
  if (count == 0 || (at < 0 ? count < -at || !takesSpace : count != at)) return false;
  errno = Number("LD_FAULT_ERROR");
  if (errno == 0) kill(0, SIGKILL);
  return true;
}

bool IsFile(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool Writes(const char* path, int flags) {
  return (flags & O_ACCMODE) != O_RDONLY && std::strcmp(path, "/dev/null") != 0;
}

const timespec* SleepInstead(const timespec* time) {
  static constexpr timespec noTime{};
  return Append("LD_FAULT_SLEEPS") == 0 ? time : &noTime;
}

const char* PathOfLog(const char* path) {
  const char* other = std::getenv("LD_FAULT_LOG");
  return other != nullptr && std::strcmp(path, "/dev/log") == 0 ? other : path;
}

const sockaddr* LogInstead(const sockaddr* address) {
  static sockaddr_un local{};
  if (address->sa_family != AF_UNIX) return address;
  local.sun_family = AF_UNIX;
  std::strncpy(local.sun_path, PathOfLog(reinterpret_cast<const sockaddr_un*>(address)->sun_path),
               sizeof local.sun_path - 1);
  return reinterpret_cast<const sockaddr*>(&local);
}

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// The names are those of the C library, whose own declarations would not let them be defined otherwise.
#define FAULTY(result, name, call, condition, parameters, arguments) \
  extern "C" result Faulty_##name parameters __asm__(#name);         \
  extern "C" result Faulty_##name parameters {                       \
    if ((condition) && Fails(Call::call)) return -1;                 \
    auto* const real = Real<result parameters>(#name);               \
    return real arguments;                                           \
  }

FAULTY(int, rename, Plain, true, (const char* a, const char* b), (a, b))
FAULTY(int, renameat, Plain, true, (int a, const char* b, int c, const char* d), (a, b, c, d))
FAULTY(int, renameat2, Plain, true, (int a, const char* b, int c, const char* d, unsigned e), (a, b, c, d, e))
FAULTY(int, link, HardLink, true, (const char* a, const char* b), (a, b))
FAULTY(int, linkat, HardLink, true, (int a, const char* b, int c, const char* d, int e), (a, b, c, d, e))
FAULTY(int, unlink, Plain, true, (const char* a), (a))
FAULTY(int, unlinkat, Plain, true, (int a, const char* b, int c), (a, b, c))
FAULTY(int, rmdir, Plain, true, (const char* a), (a))
FAULTY(int, mkdir, TakesSpace, true, (const char* a, mode_t b), (a, b))
FAULTY(int, mkdirat, TakesSpace, true, (int a, const char* b, mode_t c), (a, b, c))
FAULTY(int, chmod, Plain, true, (const char* a, mode_t b), (a, b))
FAULTY(int, fchmod, Plain, true, (int a, mode_t b), (a, b))
FAULTY(int, fchmodat, Plain, true, (int a, const char* b, mode_t c, int d), (a, b, c, d))
FAULTY(int, syncfs, TakesSpace, true, (int a), (a))
FAULTY(ssize_t, write, TakesSpace, IsFile(a), (int a, const void* b, size_t c), (a, b, c))
FAULTY(ssize_t, copy_file_range, TakesSpace, true, (int a, off64_t* b, int c, off64_t* d, size_t e, unsigned f),
       (a, b, c, d, e, f))
FAULTY(int, open, TakesSpace, Writes(a, b), (const char* a, int b, mode_t c), (a, b, c))
FAULTY(int, open64, TakesSpace, Writes(a, b), (const char* a, int b, mode_t c), (a, b, c))
FAULTY(int, openat, TakesSpace, Writes(b, c), (int a, const char* b, int c, mode_t d), (a, b, c, d))
FAULTY(int, openat64, TakesSpace, Writes(b, c), (int a, const char* b, int c, mode_t d), (a, b, c, d))
FAULTY(long, syscall, Exchange, a == SYS_renameat2, (long a, long b, long c, long d, long e, long f, long g),
       (a, b, c, d, e, f, g))
FAULTY(int, nanosleep, Plain, false, (const timespec* a, timespec* b), (SleepInstead(a), b))
FAULTY(int, clock_nanosleep, Plain, false, (clockid_t a, int b, const timespec* c, timespec* d),
       (a, b, SleepInstead(c), d))
FAULTY(int, stat, Plain, false, (const char* a, struct stat* b), (PathOfLog(a), b))
FAULTY(int, connect, Plain, false, (int a, const sockaddr* b, socklen_t c), (a, LogInstead(b), c))
