// Counts what the heap is asked for, by any library of the program: the program defines malloc() and its
// kin itself, above those of the C library. Counting is off unless a measurement switches it on, and costs a
// test of a flag then.
#ifndef JT_BENCH_HEAP_H
#define JT_BENCH_HEAP_H

#include <cstddef>

namespace bench {

// Bytes are those that the blocks can hold (malloc_usable_size()); the C library's own eight bytes before
// each block are not among them.
struct HeapUse {
  std::size_t calls = 0;       // blocks asked for, growing an existing one included
  std::ptrdiff_t live = 0;     // bytes more in use than at the start
  std::ptrdiff_t highest = 0;  // the largest number that live has been
};

void start_counting();
HeapUse stop_counting();

}  // namespace bench

#endif
