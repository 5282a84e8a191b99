#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>

#include "tests/desktop/Desktop.h"

namespace {

struct Processes : Desktop {
  /// How `command` ends. Its object is destroyed in the call that reports it.
  toolkit::ProcessEnd Run(const std::string& command) {
    std::optional<toolkit::ProcessEnd> end;
    std::unique_ptr<toolkit::ChildProcess> process;
    process =
        platform.StartProcess(command, [&](toolkit::ProcessEnd told) { end = std::move(told), process = nullptr; });
    EXPECT_FALSE(end) << "told within the call";
    EXPECT_TRUE(Until([&] { return end.has_value(); })) << command;
    return *end;
  }
  [[nodiscard]] bool Made(const char* name) const { return std::filesystem::exists(Path(name)); }
  [[nodiscard]] std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }
  static bool HasChildren() {
    siginfo_t ended{};
    return waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) == 0;
  }

  const QTemporaryDir folder;
};

TEST_F(Processes, TellHowTheyEndedAndInheritNothing) {
  const std::ofstream leaking(Path("open"));  // without O_CLOEXEC, so children could inherit it
  sigset_t blocked;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGUSR1);
  sigprocmask(SIG_BLOCK, &blocked, nullptr);
  signal(SIGUSR2, SIG_IGN);
  signal(SIGPIPE, SIG_IGN);
  qputenv("LD_BIND_NOT", "1");
  qputenv("OTHER", "=\n");
  const std::string unset(16, '0');
  const std::tuple<const char*, int, std::string> rows[] = {
      {"echo out; echo err >&2; echo out", 0, "out\nerr\nout\n"},
      {"cat; exit 3", 3, ""},
      {"yes | head -c 3000000; exit 5", 5, QString("y\n").repeated(500'000).toStdString()},
      {"ls /proc/$$/fd", 0, "0\n1\n2\n"},
      {"echo \"$LD_BIND_NOT$OTHER\"", 0, "=\n\n"},
      {"exec awk '/Sig(Blk|Ign)/ {print $2}' /proc/self/status", 0, unset + "\n" + unset + "\n"},
  };
  for (const auto& [command, code, output] : rows) {
    const toolkit::ProcessEnd end = Run(command);
    EXPECT_EQ(end.ExitCode, code) << command;
    EXPECT_TRUE(end.Output == output) << command << " wrote " << end.Output.substr(0, 200);
  }
  EXPECT_FALSE(HasChildren());
}

TEST_F(Processes, EndWhenKilledAndLiveOnWhenLetGo) {
  const std::string here = "cd " + folder.path().toStdString() + "; ";
  const auto start = [&](const char* command) {
    return platform.StartProcess(here + command, [](const toolkit::ProcessEnd&) { FAIL() << "it was told"; });
  };
  const auto grandchild = start("(sleep 0.5; touch grandchild) & touch started; wait");
  ASSERT_TRUE(Until([&] { return Made("started"); }));
  grandchild->Kill();
  start("sleep 0.3; touch early")->Kill();
  start("sleep 0.2; yes | head -c 3000000; touch on");
  EXPECT_TRUE(Until([&] { return Made("on"); }));
  EXPECT_TRUE(Until([&] { return !HasChildren(); })) << "it was not reaped";
  QTest::qWait(600);
  EXPECT_FALSE(Made("grandchild") || Made("early"));
}

}  // namespace
