// The clocks, and the median that keeps an interrupted iteration out of a figure.
#include "stopwatch.h"

#include <time.h>

#include <algorithm>

namespace bench {
namespace {

double read_clock(clockid_t clock) {
  timespec now = {};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

}  // namespace

double wall_nanoseconds() { return read_clock(CLOCK_MONOTONIC); }

double processor_nanoseconds() { return read_clock(CLOCK_THREAD_CPUTIME_ID); }

double median(std::vector<double> numbers) {
  if (numbers.empty()) return 0;
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

}  // namespace bench
