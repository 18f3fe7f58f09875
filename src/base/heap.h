// The heap of a session: where it takes the memory that it keeps, and how much it has asked for. That is the
// allocator that the session was opened with, else the heap of the C library. What is handed over to callers
// comes from the latter in any session, because it is released without one (memory.h).
//
// A bound may be put on what is asked for. A request beyond it fails like one that finds no memory, and so do
// all after it: what goes on without the memory that it wanted, as an index does, would only be slow.
// Nothing is reported here. tests/base/heap_test.cpp has both kinds of heap and the bound.
#ifndef JT_BASE_HEAP_H
#define JT_BASE_HEAP_H

#include <cstddef>
#include <cstdint>

#include "jt.h"

namespace jt_core {

// All zero is the heap of the C library without a bound.
struct Heap {
  jt_allocator allocator;
  std::uint64_t asked;  // bytes, from the beginning on; what is reallocated counts with its new size
  std::uint64_t most;   // how far that may go; 0: there is no bound
  bool bound_reached;   // a request has been refused because of it

  // Null without memory.
  [[gnu::cold]] void *allocate(std::size_t bytes);
  [[gnu::cold]] void *allocate_zeroed(std::size_t bytes);

  // The block, which may be null, with another size; null without memory, and then the block is as it was.
  [[gnu::cold]] void *reallocate(void *block, std::size_t bytes);

  [[gnu::noinline]] void release(void *block) const;

  // Moves a block of that many bytes to the heap of the C library; null without memory, and then it stays.
  void *hand_over(void *block, std::size_t bytes) const;
};

}  // namespace jt_core

#endif
