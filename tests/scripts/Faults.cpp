// Runs a command, and lets one system call fail that changes files, in it or in any process that it starts:
//
//     faults NUMBER ERROR COUNT-FILE rich|poor COMMAND...
//
// Calls are counted over all processes. Call NUMBER fails with ERROR; if that is 0, its process group is killed. If
// NUMBER is negative, every call from -NUMBER on fails that takes space. A poor file system has no hard links and
// cannot exchange names. The length of COUNT-FILE is the number of calls. The kernel reports the calls by
// seccomp_unotify(2), so the environment of the command is unchanged. Ends when all processes have ended, with the
// status of the command.

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <map>
#include <poll.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace {

constexpr int numberOfListener = 100;

enum class Kind { Plain, TakesSpace, Writes, OpensFile, HardLink, Exchanges };

const std::map<int, Kind> calls{
#ifdef SYS_rename
    {SYS_rename, Kind::Plain},
    {SYS_unlink, Kind::Plain},
    {SYS_rmdir, Kind::Plain},
    {SYS_chmod, Kind::Plain},
    {SYS_link, Kind::HardLink},
    {SYS_symlink, Kind::TakesSpace},
    {SYS_mkdir, Kind::TakesSpace},
    {SYS_open, Kind::OpensFile},
    {SYS_creat, Kind::TakesSpace},
#endif
    {SYS_renameat, Kind::Plain},
    {SYS_unlinkat, Kind::Plain},
    {SYS_fchmod, Kind::Plain},
    {SYS_fchmodat, Kind::Plain},
    {SYS_linkat, Kind::HardLink},
    {SYS_renameat2, Kind::Exchanges},
    {SYS_symlinkat, Kind::TakesSpace},
    {SYS_mkdirat, Kind::TakesSpace},
    {SYS_openat, Kind::OpensFile},
    {SYS_write, Kind::Writes},
    {SYS_copy_file_range, Kind::TakesSpace},
    {SYS_syncfs, Kind::TakesSpace},
};

struct Settings {
  long At;
  int Error;
  std::string Count;
  bool IsPoor;
};

/// From now on, the kernel asks before each of these calls of this process and its children. Returns the listener.
int AskAboutCalls() {
  std::vector<sock_filter> program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
  for (const auto& [number, kind] : calls) {
    program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(number), 0, 1));
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
  }
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog filter{.len = static_cast<unsigned short>(program.size()), .filter = program.data()};
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  return static_cast<int>(syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &filter));
}

/// The null-terminated text at an address of another process; empty if it cannot be read.
std::string TextAt(unsigned process, std::uint64_t address) {
  std::ifstream memory("/proc/" + std::to_string(process) + "/mem", std::ios::binary);
  std::string text;
  memory.seekg(static_cast<std::streamoff>(address));
  std::getline(memory, text, '\0');
  return text;
}

bool IsFile(unsigned process, std::uint64_t descriptor) {
  struct stat status {};
  const auto path = "/proc/" + std::to_string(process) + "/fd/" + std::to_string(static_cast<int>(descriptor));
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

class Faults {
 public:
  explicit Faults(Settings settings) : settings_(std::move(settings)) {}

  /// The error that a call is to fail with; -1: none.
  int ErrorOf(const seccomp_notif& call) {
    const auto& arguments = call.data.args;
    const Kind kind = calls.at(call.data.nr);
    if (kind == Kind::Writes && !IsFile(call.pid, arguments[0])) return -1;
    if (kind == Kind::OpensFile && !OpensToWrite(call)) return -1;
    const bool exchanges = kind == Kind::Exchanges && (arguments[4] & RENAME_EXCHANGE) != 0;
    if (settings_.IsPoor && (kind == Kind::HardLink || exchanges)) return EPERM;
    return Count(call, kind != Kind::Plain && kind != Kind::Exchanges);
  }

 private:
  static bool OpensToWrite(const seccomp_notif& call) {
    const bool isAt = call.data.nr == SYS_openat;
    const auto flags = static_cast<int>(call.data.args[isAt ? 2 : 1]);
    return (flags & O_ACCMODE) != O_RDONLY && !TextAt(call.pid, call.data.args[isAt ? 1 : 0]).starts_with("/dev/");
  }

  int Count(const seccomp_notif& call, bool takesSpace) {
    // The updated program is a script of this shell, and not to be tested.
    std::error_code ignored;
    const auto program = std::filesystem::read_symlink("/proc/" + std::to_string(call.pid) + "/exe", ignored);
    if (program.filename() == "dash" || program.filename() == "sh") return -1;
    ++count_;
    std::ofstream(settings_.Count, std::ios::app) << '.';
    const long at = settings_.At;
    if (at == 0 || (at < 0 ? count_ < -at || !takesSpace : count_ != at)) return -1;
    if (settings_.Error == 0) kill(-getpgid(static_cast<pid_t>(call.pid)), SIGKILL);
    return settings_.Error;
  }

  Settings settings_;
  long count_ = 0;
};

/// Answers until no process is left that could ask.
void Answer(int listener, Faults faults) {
  pollfd asked{.fd = listener, .events = POLLIN, .revents = 0};
  while (poll(&asked, 1, -1) >= 0 && (asked.revents & POLLIN) != 0) {
    seccomp_notif call{};
    if (ioctl(listener, SECCOMP_IOCTL_NOTIF_RECV, &call) != 0) continue;  // the process was killed
    seccomp_notif_resp answer{};
    answer.id = call.id;
    const int error = faults.ErrorOf(call);
    answer.error = error < 0 ? 0 : -error;
    if (error < 0) answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
    ioctl(listener, SECCOMP_IOCTL_NOTIF_SEND, &answer);
  }
}

}  // namespace

int main(int /*argc*/, char** argv) {
  char** command = argv + 5;
  const Settings settings{std::stol(argv[1]), std::stoi(argv[2]), argv[3], argv[4] == std::string("poor")};
  prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0);  // so that this process may read the memory of all descendants
  const pid_t child = fork();
  if (child == 0) {
    if (dup3(AskAboutCalls(), numberOfListener, O_CLOEXEC) < 0) _exit(EXIT_FAILURE);
    std::ignore = raise(SIGSTOP);  // until the parent has the listener
    execvp(command[0], command);
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, WUNTRACED);
  const auto process = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
  const auto listener = static_cast<int>(syscall(SYS_pidfd_getfd, process, numberOfListener, 0));
  kill(child, listener < 0 ? SIGKILL : SIGCONT);
  if (listener < 0) {
    std::cerr << "The kernel does not let calls be watched here.\n";
    return 77;
  }
  Answer(listener, Faults(settings));
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}
