// Everything that a run has measured, and its tables.
#ifndef JT_BENCH_FIGURES_H
#define JT_BENCH_FIGURES_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "life_cycle.h"

namespace bench {

// What one task came to; times are nanoseconds of the whole template.
struct Figures {
  const Task *task;
  HeapUse heap;
  std::map<Step, double> warm;
  std::map<Step, double> cold;
  std::map<Step, double> instructions;  // empty where they were not counted

  // What figures are divided by: attributes, or values where there is but one attribute.
  double facts() const;
  double warm_per_fact(Step step) const;
};

// Sizes that this program cannot measure itself; given on its command line.
struct Sizes {
  std::optional<double> heap_32_bits;
  std::optional<double> library_x86_64;
  std::optional<double> library_powerpc;
};

struct Results {
  std::vector<Figures> figures;
  std::map<std::string, std::map<std::string, double>> api;  // benchmark, call: nanoseconds
  Sizes sizes;

  const Figures &of(Shape shape, const std::string &library) const;
};

// All tables in Markdown: what was measured with, targets, times, calls, instructions.
std::string to_markdown(const Results &results);

// The table of the targets alone.
std::string targets_to_markdown(const Results &results);

}  // namespace bench

#endif
