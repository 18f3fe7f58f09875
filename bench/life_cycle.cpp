// One iteration is one life of a tree. Each step is timed by itself; the median over the iterations becomes a
// counter of the benchmark. On a cold heap everything that is free has been given back to the system before
// the parse and before the save.
#include "life_cycle.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <climits>

#include "stopwatch.h"

namespace bench {
namespace {

constexpr std::array kStepNames = {"parse", "save", "destroy"};
static_assert(kStepNames.size() == kSteps.size());

std::string describe(const Task &task) {
  return std::string(name_of(task.shape)) + " by " + task.library->name;
}

// What is saved must hold the facts as well.
void check(const Task &task) {
  const std::unique_ptr<Library> library = task.library->make();
  require(library->parse(task.text), "parsing " + describe(task));
  require(library->is_clean(), "parsing without warnings " + describe(task));
  require(library->count() == task.counts, "finding every fact of " + describe(task));
  const std::string saved(library->save());
  library->release_text();
  library->destroy();
  require(library->parse(saved), "parsing again " + describe(task));
  require(library->count() == task.counts, "finding every fact again of " + describe(task));
  library->destroy();
}

using Times = std::array<std::vector<double>, kSteps.size()>;

// Nanoseconds of the whole life.
double live(Library &library, const Task &task, Heap heap, Times &times) {
  double sum = 0;
  for (const Step step : kSteps) {
    if (heap == Heap::kCold && step != Step::kDestroy) malloc_trim(0);
    const double taken = time_of([&] { take(library, task, step); });
    times[static_cast<std::size_t>(step)].push_back(taken);
    sum += taken;
    if (step == Step::kSave) library.release_text();
  }
  return sum;
}

// Lives through the first life, and looks whether it has all facts.
void warm_up(Library &library, const Task &task) {
  take(library, task, Step::kParse);
  require(library.count() == task.counts, "finding every fact of " + describe(task));
  take(library, task, Step::kSave);
  library.release_text();
  take(library, task, Step::kDestroy);
}

// On a cold heap a library starts anew for each tree, so that nothing of its own is warm either.
void run(benchmark::State &state, const Task &task, Heap heap) {
  std::unique_ptr<Library> library = task.library->make();
  warm_up(*library, task);
  Times times;
  for (auto iteration : state) {
    if (heap == Heap::kCold) library = task.library->make();
    state.SetIterationTime(live(*library, task, heap, times) / 1e9);
  }
  for (const Step step : kSteps) {
    state.counters[name_of(step)] = median(times[static_cast<std::size_t>(step)]);
  }
}

}  // namespace

const char *name_of(Step step) { return kStepNames[static_cast<std::size_t>(step)]; }

Task make_task(const LibraryRow &library, Shape shape) {
  const Facts facts = make_facts(shape);
  return {&library, shape, bench::count(facts), library.write(facts)};
}

std::vector<Task> make_tasks() {
  std::vector<Task> tasks;
  for (const Shape shape : kShapes) {
    for (const LibraryRow &library : libraries()) {
      tasks.push_back(make_task(library, shape));
      check(tasks.back());
    }
  }
  return tasks;
}

void take(Library &library, const Task &task, Step step) {
  switch (step) {
    case Step::kParse:
      return require(library.parse(task.text), "parsing");
    case Step::kSave:
      return require(!library.save().empty(), "saving");
    case Step::kDestroy:
      return library.destroy();
  }
}

HeapUse measure_heap(const Task &task) {
  start_counting();
  const std::unique_ptr<Library> library = task.library->make();
  const bool parsed = library->parse(task.text);
  const HeapUse use = stop_counting();
  require(parsed, "parsing " + describe(task));
  library->destroy();
  return use;
}

void keep_freed_memory() {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, INT_MAX);
}

std::string benchmark_name(const Task &task, Heap heap) {
  return std::string(name_of(task.shape)) + "/" + task.library->name +
         (heap == Heap::kCold ? "/cold" : "/warm");
}

void register_life_cycles(const Task &task) {
  for (const Heap heap : {Heap::kWarm, Heap::kCold}) {
    benchmark::RegisterBenchmark(benchmark_name(task, heap).c_str(), [&task, heap](benchmark::State &state) {
      run(state, task, heap);
    })->UseManualTime();
  }
}

}  // namespace bench
