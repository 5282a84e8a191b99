#pragma once

#include <mutex>
#include <optional>
#include <random>

#include "panel/Fleet.h"
#include "panel/Times.h"

namespace panel {

/// A simulated server, whose containers change their state by the clock of the machine.
class DemoFleet final : public Fleet {
 public:
  struct Settings {
    std::uint64_t Containers = 0;
    std::uint64_t LogLines = 0;  ///< Of each container.
    std::string Hostname;        ///< What Describe() reports.
  };
  explicit DemoFleet(const Settings& settings);

  Information Describe() override;
  /// Restarts the running containers.
  std::string Reboot() override;
  /// Blocks for about a second, in which other calls are answered.
  std::string Reload() override;
  std::vector<ContainerRow> List() override;
  std::string Act(Action action, const std::string& name) override;
  void ReadLog(const std::string& name, std::uint64_t count, const LineSink& sink) override;

 private:
  enum class State { Running, Exited };
  struct Container {
    std::string Name;
    DemoFleet::State State = DemoFleet::State::Running;
    int ExitCode = 0;  ///< Of an exited one.
    Time Since;        ///< When it got into its state.
    std::optional<Time> Backup;
  };
  static Container MakeContainer(std::uint64_t number, Time now);
  static std::string Start(Container& container);
  static std::string Stop(Container& container);
  Container& Find(const std::string& name);

  std::uint64_t logLines_;
  std::string hostname_;
  Time startedAt_;
  std::mutex mutex_;  ///< Protects the members below.
  std::vector<Container> containers_;
  std::minstd_rand chance_;
};

}  // namespace panel
