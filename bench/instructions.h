// Instructions counted by valgrind's callgrind: figures that no other load on the machine can blur.
#ifndef JT_BENCH_INSTRUCTIONS_H
#define JT_BENCH_INSTRUCTIONS_H

#include <optional>
#include <string>

#include "life_cycle.h"

namespace bench {

// Lives a few lives of which callgrind is to count one step: the calls of jt_bench_counted().
void run_for_callgrind(const Task &task, Step counted);

// Runs this program under callgrind. Instructions of one step; nothing when there is no valgrind.
std::optional<double> count_instructions(const Task &task, Step counted);

}  // namespace bench

#endif
