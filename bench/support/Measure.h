#pragma once

#include <chrono>
#include <sched.h>
#include <vector>

namespace bench {

using Clock = std::chrono::steady_clock;
using Duration = std::chrono::duration<double>;

/// The median of `values`, of which there must be at least one.
[[nodiscard]] double Median(std::vector<double> values);

/// Keeps this process, and those that it starts meanwhile, on one processor. Without effect if there is none of that
/// number.
class OnProcessor {
 public:
  explicit OnProcessor(int number);
  OnProcessor(const OnProcessor&) = delete;
  OnProcessor& operator=(const OnProcessor&) = delete;
  ~OnProcessor() { sched_setaffinity(0, sizeof before_, &before_); }

 private:
  cpu_set_t before_{};
};

/// Seconds from `start` to now.
[[nodiscard]] inline double SecondsSince(Clock::time_point start) { return Duration(Clock::now() - start).count(); }

/// Seconds that `action` takes.
template <typename Action>
double SecondsOf(Action action) {
  const Clock::time_point start = Clock::now();
  action();
  return SecondsSince(start);
}

}  // namespace bench
