// Times a step on a machine that has other things to do as well.
#ifndef JT_BENCH_STOPWATCH_H
#define JT_BENCH_STOPWATCH_H

#include <vector>

namespace bench {

double wall_nanoseconds();
double processor_nanoseconds();

// The smaller of the time that has passed and the time that the thread was given: the first counts the turns
// of other processes, the second its own costly clock.
template <typename Work>
double time_of(Work work) {
  const double processor = processor_nanoseconds();
  const double wall = wall_nanoseconds();
  work();
  const double passed = wall_nanoseconds() - wall;
  const double given = processor_nanoseconds() - processor;
  return passed < given ? passed : given;
}

// 0 when there are no numbers.
double median(std::vector<double> numbers);

}  // namespace bench

#endif
