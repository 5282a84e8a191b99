#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace toolkit::http {

enum class Readiness : unsigned char { None = 0, Reading = 1, Writing = 2, Both = 3 };

/// Watches a descriptor until it is destroyed, which must happen before the descriptor is closed.
class DescriptorWatch {
 public:
  virtual ~DescriptorWatch() = default;
  /// Sets what to wait for; initially nothing.
  virtual void WaitFor(Readiness readiness) = 0;
};

/// Calls its function once after each Set(), unless it is set again, stopped or destroyed before.
class Alarm {
 public:
  virtual ~Alarm() = default;
  virtual void Set(std::chrono::milliseconds time) = 0;
  virtual void Stop() = 0;
};

/// What transfers need of the event loop that they run on. Callbacks are called on that loop, never from within the
/// call that registered them, and may destroy the object that they belong to.
class EventLoop {
 public:
  virtual ~EventLoop() = default;
  /// Calls `ready` with Reading or Writing whenever `descriptor` is ready for what WaitFor() has set.
  virtual std::unique_ptr<DescriptorWatch> Watch(int descriptor, std::function<void(Readiness)> ready) = 0;
  virtual std::unique_ptr<Alarm> MakeAlarm(std::function<void()> rings) = 0;
};

}  // namespace toolkit::http
