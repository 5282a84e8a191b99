#include "toolkit/Timer.h"

#include "toolkit/Platform.h"

namespace toolkit {

void Timer::Mode(RunMode mode) {
  mode_ = mode;
  running_ = mode == RunMode::Off ? nullptr : Platform::Current().StartTimer(Period, [this] { Expired(); });
}

void Timer::Expired() {
  Mode(mode_ == RunMode::Multiple ? RunMode::Multiple : RunMode::Off);
  Action();
}

}  // namespace toolkit
