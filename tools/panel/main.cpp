// A small panel service, for trying out and testing; not for production.

#include <array>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <poll.h>
#include <pthread.h>
#include <span>
#include <sys/signalfd.h>
#include <thread>
#include <unistd.h>

#include "panel/DemoFleet.h"
#include "panel/EngineFleet.h"
#include "panel/HttpsServer.h"
#include "panel/Machine.h"
#include "panel/Options.h"
#include "panel/Service.h"

namespace {

constexpr int usageStatus = 2;

// Returns a descriptor that becomes readable at SIGTERM or SIGINT. Call it before any thread starts, so that all of
// them block these signals.
int WatchSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC);
}

bool StdinHasEnded() {
  std::array<char, 256> ignored{};
  return read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0;
}

// Ends the program at a signal, or at the end of standard input if that is watched. Open connections are not waited
// for: nothing has to be saved.
[[noreturn]] void EndWhenAsked(int signals, bool untilStdinCloses) {
  // poll() ignores a negative descriptor.
  std::array<pollfd, 2> watched{{{signals, POLLIN, 0}, {untilStdinCloses ? STDIN_FILENO : -1, POLLIN, 0}}};
  for (;;) {
    if (poll(watched.data(), watched.size(), -1) < 0) continue;
    if (watched[0].revents != 0) break;
    if (watched[1].revents != 0 && StdinHasEnded()) break;
  }
  std::_Exit(EXIT_SUCCESS);
}

// The host name that is reported to clients.
std::string ReportedHostname(const panel::Options& options) {
  if (!options.Hostname.empty()) return options.Hostname;
  const bool isEveryAddress = options.Address == "0.0.0.0" || options.Address == "::";
  return isEveryAddress ? panel::LookAtMachine().Name : panel::HostInUrl(options.Address);
}

std::unique_ptr<panel::Fleet> MakeFleet(const panel::Options& options) {
  const std::string hostname = ReportedHostname(options);
  if (!options.Engine.empty()) {
    return std::make_unique<panel::EngineFleet>(panel::EngineSocketPath(options.Engine), hostname);
  }
  return std::make_unique<panel::DemoFleet>(
      panel::DemoFleet::Settings{.Containers = options.Containers, .LogLines = options.LogLines, .Hostname = hostname});
}

[[noreturn]] void Run(const panel::Options& options) {
  const int signals = WatchSignals();
  const std::unique_ptr<panel::Fleet> fleet = MakeFleet(options);
  panel::Service service({.User = options.User, .Password = options.Password}, *fleet);
  panel::HttpsServer server(options, service);
  server.Listen();
  std::thread(EndWhenAsked, signals, options.UntilStdinCloses).detach();
  server.Serve();
  // Not by an exception: threads of open connections still use these objects.
  std::cerr << "corvane-panel: listening broke down" << std::endl;
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const std::span all(arguments, static_cast<std::size_t>(count));
    const panel::Options options = panel::ParseOptions(all.subspan(1));
    if (options.Help) {
      std::cout << panel::HelpText();
      return EXIT_SUCCESS;
    }
    Run(options);
  } catch (const panel::UsageError& error) {
    std::cerr << "corvane-panel: " << error.what() << "\n";
    return usageStatus;
  } catch (const std::exception& error) {
    std::cerr << "corvane-panel: " << error.what() << "\n";
  }
  return EXIT_FAILURE;
}
