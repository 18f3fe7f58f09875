// jt_footprint: the heap that a decoded template takes, on any target, as this program needs no other
// library. Prints bytes for each attribute, for "long" for each value, and for a hostile shape for each byte.
#include <cstdio>
#include <cstdlib>

#include "heap.h"
#include "jt.h"
#include "shapes.h"

int main() {
  for (const bench::Shape &shape : bench::shapes()) {
    const std::string text = shape.make();
    const double before = bench::heap_in_use();
    jt_parser_space *const space = jt_open_parsing_utility("jt_footprint");
    if (jt_decode_template(space, text.c_str()) == 0) return EXIT_FAILURE;
    const double bytes = bench::heap_in_use() - before;
    std::printf("%s\t%.1f\n", shape.name, bytes / static_cast<double>(bench::parts(shape, text)));
    jt_close_parsing_utility(space);
  }
}
