// The life of a tree, timed step by step: parse, save, destroy.
#ifndef JT_BENCH_LIFE_CYCLE_H
#define JT_BENCH_LIFE_CYCLE_H

#include <array>
#include <string>

#include "facts.h"
#include "heap.h"
#include "library.h"

namespace bench {

// A shape with its facts counted and its text in one library's format.
struct Task {
  const LibraryRow *library;
  Shape shape;
  Counts counts;
  std::string text;
};

enum class Step { kParse, kSave, kDestroy };

inline constexpr std::array kSteps = {Step::kParse, Step::kSave, Step::kDestroy};

const char *name_of(Step step);

// Every task, checked: shape by shape, library by library.
std::vector<Task> make_tasks();

Task make_task(const LibraryRow &library, Shape shape);

// Takes a step of the tree's life; ends the program if it fails. The saved text is still there afterwards.
void take(Library &library, const Task &task, Step step);

// The heap during a parse by a library that has just been made. What it holds from the start (jt's session)
// is counted as well.
HeapUse measure_heap(const Task &task);

// Keeps freed memory in the process, so that a tree finds its pages where the last one left them.
void keep_freed_memory();

enum class Heap { kWarm, kCold };

// The name of the benchmark of a task: "shape/library/warm" or ".../cold". Its counters are the names of the
// steps; each is the nanoseconds of that step for the whole template.
std::string benchmark_name(const Task &task, Heap heap);

// Registers both benchmarks of a task, which must outlive them.
void register_life_cycles(const Task &task);

}  // namespace bench

#endif
