// The templates that are measured, as SIL in the layout that jt writes.
#ifndef JT_BENCH_SHAPES_H
#define JT_BENCH_SHAPES_H

#include <span>
#include <string>
#include <vector>

namespace bench {

// A hostile shape is what nobody writes, but a file from outside may hold: only jt is measured with it, by
// bytes.
struct Shape {
  const char *name;
  std::string (*make)();
  bool is_hostile;
};

std::span<const Shape> shapes();

// What a figure of the shape is divided by: attributes, of one long attribute values, of a hostile shape bytes.
std::size_t parts(const Shape &shape, const std::string &text);

// The names of enumerated values in the shapes, some more than once.
std::vector<std::string> enumerated_names();

}  // namespace bench

#endif
