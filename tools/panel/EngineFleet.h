#pragma once

#include <string>

#include "panel/EngineClient.h"
#include "panel/Fleet.h"
#include "panel/Machine.h"

namespace panel {

/// This machine, with the containers of an engine that supports the Docker Engine API on a Unix socket. A backup of a
/// container is an image "corvane-backup:NAME-YYYYMMDD-HHMMSS".
class EngineFleet final : public Fleet {
 public:
  /// `hostname` is the one that Describe() reports.
  EngineFleet(std::string socketPath, std::string hostname);

  Information Describe() override;
  /// Only acknowledges: does nothing to the machine.
  std::string Reboot() override;
  /// Only acknowledges.
  std::string Reload() override;
  std::vector<ContainerRow> List() override;
  /// Waits for the engine, which gives a container ten seconds to stop.
  std::string Act(Action action, const std::string& name) override;
  void ReadLog(const std::string& name, std::uint64_t count, const LineSink& sink) override;

 private:
  std::string BackUp(const std::string& id, const std::string& name);
  [[nodiscard]] std::string FindId(const std::string& name) const;

  EngineClient engine_;
  std::string hostname_;
  LoadMeter load_;
};

}  // namespace panel
