// What the library does between two points, counted rather than timed, so that it is the same on every run
// and every machine: the edges of its code that are passed, the bytes that it has the C library move or
// search, the heap that it holds. What links this takes the library from jt_metered, which is built to be
// counted.
#ifndef JT_FUZZ_METER_H
#define JT_FUZZ_METER_H

#include <cstddef>
#include <cstdint>

namespace jt_fuzz {

struct Cost {
  std::uint64_t edges = 0;
  std::uint64_t moved = 0;  // bytes; those that the heap clears or moves are among them
  std::size_t heap = 0;     // the most bytes that were held at once
};

// Runs from its making on. There is one at a time.
class Meter {
 public:
  Meter();
  Cost read() const;

 private:
  std::uint64_t edges_;
  std::uint64_t moved_;
  std::size_t held_;
};

}  // namespace jt_fuzz

#endif
