#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace bench {

/// An X server without a screen (Xvfb), for this process and those that it starts from now on. Its pixels are mapped
/// from a file, so that reading them takes no time from the server.
class VirtualScreen {
 public:
  /// Sets DISPLAY, and lets Qt use it. Throws if the server does not start.
  VirtualScreen();
  VirtualScreen(const VirtualScreen&) = delete;
  VirtualScreen& operator=(const VirtualScreen&) = delete;
  ~VirtualScreen();

  /// The pixels as they are now, the rows one after the other.
  [[nodiscard]] std::span<const volatile std::uint32_t> Pixels() const { return pixels_; }

 private:
  void MapPixels();

  TemporaryFolder folder_;
  std::unique_ptr<ChildProcess> server_;
  void* memory_ = nullptr;
  std::size_t memorySize_ = 0;
  std::span<const volatile std::uint32_t> pixels_;
};

}  // namespace bench
