// How much of the heap is in use, for any library of the program: the C library's own count.
#ifndef JT_BENCH_HEAP_H
#define JT_BENCH_HEAP_H

#include <malloc.h>

namespace bench {

// In bytes, with those that the C library adds to each block. It keeps some small blocks that were freed for
// the next call and counts them as used.
inline double heap_in_use() {
  const struct mallinfo2 use = mallinfo2();
  return static_cast<double>(use.uordblks + use.hblkhd);
}

}  // namespace bench

#endif
