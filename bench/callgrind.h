// Counts instructions with valgrind's callgrind. They hardly vary from run to run, so they show a change that
// a time does not, and a cost that grows with the number of siblings as a plain ratio.
#ifndef JT_BENCH_CALLGRIND_H
#define JT_BENCH_CALLGRIND_H

#include <valgrind/callgrind.h>

namespace bench {

// Outside of valgrind, the program begins anew under callgrind; there, this does nothing. The arguments are
// those of main().
void run_under_callgrind(char **arguments);

// Counts from its making on, one object at a time; what is not inside a call of the object costs the program
// five times its time and calls fifty times.
class InstructionCounter {
 public:
  InstructionCounter() { CALLGRIND_START_INSTRUMENTATION; }
  ~InstructionCounter() { CALLGRIND_STOP_INSTRUMENTATION; }
  InstructionCounter(const InstructionCounter &) = delete;
  InstructionCounter &operator=(const InstructionCounter &) = delete;

  // Makes the call and counts its instructions.
  template <typename Call>
  auto operator()(Call call) {
    ++calls_;
    CALLGRIND_TOGGLE_COLLECT;
    const auto result = call();
    CALLGRIND_TOGGLE_COLLECT;
    return result;
  }

  // The instructions of a call, of all that were counted; to be asked once.
  double mean() const;

 private:
  double calls_ = 0;
};

}  // namespace bench

#endif
