#include "support/Measure.h"

#include <algorithm>
#include <stdexcept>

namespace bench {

double Median(std::vector<double> values) {
  if (values.empty()) throw std::logic_error("there is no median of nothing");
  const std::size_t middle = values.size() / 2;
  std::ranges::sort(values);
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

OnProcessor::OnProcessor(int number) {
  sched_getaffinity(0, sizeof before_, &before_);
  cpu_set_t one{};
  CPU_SET(number, &one);
  sched_setaffinity(0, sizeof one, &one);
}

}  // namespace bench
