// Counts what the heap holds for any library of the program: the program defines malloc() and its kin itself,
// above those of the C library.
#ifndef JT_BENCH_HEAP_H
#define JT_BENCH_HEAP_H

#include <cstddef>

namespace bench {

// Bytes that are in use since this was called the last time, less those that were released. They are those
// that the blocks can hold; the C library's own bytes before each block are not among them.
std::ptrdiff_t take_heap_use();

}  // namespace bench

#endif
