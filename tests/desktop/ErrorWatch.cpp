// A test on the desktop fails on every line on standard error that tests/support/allowed-errors does not have: that is
// where Qt and the system's libraries tell of misuse.

#include <algorithm>
#include <csignal>
#include <fstream>
#include <string>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <tuple>
#include <unistd.h>
#include <utility>
#include <vector>

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): all that the handler of a signal can reach
int own = STDERR_FILENO;
int caught = -1;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

// A test that ends the program has its last words heard.
void PassOn() {
  if (off_t start = 0; caught >= 0) std::ignore = sendfile(own, caught, &start, 1U << 20U);
}
extern "C" void PassOnAndEnd(int signal) {
  PassOn();
  std::signal(signal, SIG_DFL);
  std::ignore = raise(signal);
}
extern "C" void __attribute__((weak)) __sanitizer_set_death_callback(void (*callback)());  // NOLINT: its real name

std::vector<QRegularExpression> AllowedLines() {
  std::vector<QRegularExpression> allowed;
  std::ifstream list(ALLOWED_ERRORS);
  for (std::string line; std::getline(list, line);) {
    if (line.empty() || line.front() == '#') continue;
    allowed.emplace_back(QRegularExpression::anchoredPattern(QString::fromStdString(line)));
  }
  return allowed;
}

class ErrorWatch final : public testing::EmptyTestEventListener {
 public:
  ErrorWatch() {
    own = dup(STDERR_FILENO);
    if (__sanitizer_set_death_callback != nullptr) {
      __sanitizer_set_death_callback(PassOn);
    } else {
      for (const int signal : {SIGABRT, SIGSEGV}) std::signal(signal, PassOnAndEnd);
    }
  }
  void OnTestStart(const testing::TestInfo& /*test*/) override {
    caught = memfd_create("errors", MFD_CLOEXEC);
    dup2(caught, STDERR_FILENO);
  }
  void OnTestEnd(const testing::TestInfo& /*test*/) override {
    dup2(own, STDERR_FILENO);
    std::ifstream lines("/proc/self/fd/" + std::to_string(caught));
    for (std::string line; std::getline(lines, line);) {
      const QString said = QString::fromStdString(line);
      const auto allows = [&](const QRegularExpression& allowed) { return allowed.match(said).hasMatch(); };
      if (!line.empty() && std::ranges::none_of(allowed_, allows)) ADD_FAILURE() << "on standard error: " << line;
    }
    close(std::exchange(caught, -1));
  }

 private:
  std::vector<QRegularExpression> allowed_ = AllowedLines();
};

// GoogleTest owns it.
const bool isWatched = (testing::UnitTest::GetInstance()->listeners().Append(new ErrorWatch), true);

}  // namespace
