#pragma once

#include <chrono>
#include <memory>

#include "toolkit/Event.h"

namespace toolkit {

/// The platform's part of a timer. Destroying it stops the timer.
class PlatformTimer {
 public:
  virtual ~PlatformTimer() = default;
};

/// Raises an event after a time, once or repeatedly. The time during which a dialog is open does not count.
class Timer {
 public:
  enum class RunMode { Off = 0, Single = 1, Multiple = 2 };

  Timer() = default;
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() = default;

  /// The time is over. In Single mode the timer is already off.
  Event<> Action;
  /// Takes effect with the next start or reset.
  std::chrono::milliseconds Period{1000};

  [[nodiscard]] RunMode Mode() const { return mode_; }
  /// Restarts the timer, or stops it.
  void Mode(RunMode mode);
  /// Restarts the timer, if it is on.
  void Reset() { Mode(mode_); }

 private:
  void Expired();

  RunMode mode_ = RunMode::Off;
  std::unique_ptr<PlatformTimer> running_;
};

}  // namespace toolkit
