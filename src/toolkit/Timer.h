#pragma once

#include <chrono>
#include <memory>

#include "toolkit/Event.h"

namespace toolkit {

/// What a timer counts with. Belongs to the platform; it ends with this object.
class PlatformTimer {
 public:
  virtual ~PlatformTimer() = default;
};

/// Raises an event after a time, once or again and again. The time stands still while a dialog does.
class Timer {
 public:
  enum class RunMode { Off = 0, Single = 1, Multiple = 2 };

  Timer() = default;
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() = default;

  /// The time is over. In Single mode the timer is off by then.
  Event<> Action;
  /// Counts from the next start or reset on.
  std::chrono::milliseconds Period{1000};

  [[nodiscard]] RunMode Mode() const { return mode_; }
  /// Starts the timer anew, or ends it.
  void Mode(RunMode mode);
  /// Starts the time anew, if the timer is on.
  void Reset() { Mode(mode_); }

 private:
  void Expired();

  RunMode mode_ = RunMode::Off;
  std::unique_ptr<PlatformTimer> running_;
};

}  // namespace toolkit
