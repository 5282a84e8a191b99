#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace toolkit::http {

enum class Readiness : unsigned char { None = 0, Reading = 1, Writing = 2, Both = 3 };

/// A descriptor under watch, until this is destroyed, which must be before the descriptor is closed.
class DescriptorWatch {
 public:
  virtual ~DescriptorWatch() = default;
  /// What is waited for from now on; nothing at first.
  virtual void WaitFor(Readiness readiness) = 0;
};

/// Rings once each time it was set, unless it is set anew, stopped or destroyed before.
class Alarm {
 public:
  virtual ~Alarm() = default;
  virtual void Set(std::chrono::milliseconds time) = 0;
  virtual void Stop() = 0;
};

/// All that transfers need of the event loop that they run on. Its calls come on that loop, never from within the call
/// that asked for them, and may destroy what they come from.
class EventLoop {
 public:
  virtual ~EventLoop() = default;
  /// Calls `ready` with Reading or Writing whenever `descriptor` is ready for what is waited for.
  virtual std::unique_ptr<DescriptorWatch> Watch(int descriptor, std::function<void(Readiness)> ready) = 0;
  virtual std::unique_ptr<Alarm> MakeAlarm(std::function<void()> rings) = 0;
};

}  // namespace toolkit::http
