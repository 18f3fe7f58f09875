// How much heap a decoded template takes, on any target: this program needs no other library. It prints heap
// bytes and mallocs per attribute (for "long" per value) of every shape, or, given the name of a shape, the
// bytes alone.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "facts.h"
#include "heap.h"
#include "jt.h"
#include "writers.h"

namespace {

struct Footprint {
  double bytes;
  double mallocs;
};

Footprint measure(bench::Shape shape) {
  const bench::Facts facts = bench::make_facts(shape);
  const bench::Counts counts = bench::count(facts);
  const std::string text = bench::write_sil(facts);
  bench::start_counting();
  jt_parser_space *const space = jt_open_parsing_utility("jt_footprint");
  const int32_t job = jt_decode_template(space, text.c_str());
  const bench::HeapUse use = bench::stop_counting();
  jt_close_parsing_utility(space);
  if (job == 0) std::exit(EXIT_FAILURE);
  const double divisor = static_cast<double>(counts.attributes > 1 ? counts.attributes : counts.values);
  return {static_cast<double>(use.live) / divisor, static_cast<double>(use.calls) / divisor};
}

}  // namespace

int main(int count, char **words) {
  for (const bench::Shape shape : bench::kShapes) {
    const char *const name = bench::name_of(shape);
    if (count > 1 && std::strcmp(words[1], name) != 0) continue;
    const Footprint footprint = measure(shape);
    if (count > 1) {
      std::printf("%.1f\n", footprint.bytes);
    } else {
      std::printf("%-8s %6.1f bytes %8.4f mallocs\n", name, footprint.bytes, footprint.mallocs);
    }
  }
  return EXIT_SUCCESS;
}
