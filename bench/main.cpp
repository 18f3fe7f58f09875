// jt_bench: jt beside other libraries that keep the same facts in a tree that can be changed. Each step of a
// tree's life is a benchmark of its own, named shape/library/step; Google Benchmark repeats, filters and
// writes them. tables.py makes the tables of docs/performance.md of that.
//
//   jt_bench [--benchmark_OPTION]...                  times, and heap beside those of the parse
//   jt_bench --instructions [--benchmark_OPTION]...   instructions of the smaller shapes, by callgrind
//   jt_bench --first LIBRARY FILE                     seconds of the first parse of a process
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <list>
#include <vector>

#include "callgrind.h"
#include "heap.h"
#include "libraries.h"
#include "shapes.h"

namespace {

using bench::require;

enum Step { kParse, kSave, kDestroy };
constexpr const char *kStepNames[] = {"parse", "save", "destroy"};

struct Task {
  std::string name;
  const bench::LibraryRow *library;
  bool is_hostile;
  std::string text;
  std::size_t parts;  // that a figure is divided by: attributes, values or bytes
};

double seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// One iteration is one life of a tree, of which one step is measured. The first life warms up; it makes sure
// that the library writes its own text again, and so has understood all of it. Hostile text is not its own.
void run(benchmark::State &state, const Task &task, Step measured) {
  const double before = bench::heap_in_use();
  const auto library = task.library->make();
  require(library->parse(task.text), "parsing " + task.name);
  if (measured == kParse) state.counters["heap"] = bench::heap_in_use() - before;
  require(task.is_hostile || library->save() == task.text, "saving " + task.name);
  library->destroy();
  const bool counts = RUNNING_ON_VALGRIND != 0;
  bench::InstructionCounter counter;
  const auto take = [&](Step step, auto call) {
    if (step != measured) return call();
    const double begin = seconds();
    const bool is_done = counts ? counter(call) : call();
    state.SetIterationTime(seconds() - begin);
    return is_done;
  };
  for (auto iteration : state) {
    require(take(kParse, [&] { return library->parse(task.text); }), task.name);
    if (measured == kSave) require(take(kSave, [&] { return !library->save().empty(); }), task.name);
    take(kDestroy, [&] { return library->destroy(), true; });
  }
  if (counts) state.counters["instructions"] = counter.mean();
  state.counters["parts"] = static_cast<double>(task.parts);
}

// ---- The first parse of a process ----

int parse_first(const std::string &name, const char *path) {
  const auto libraries = bench::libraries();
  const auto row = std::ranges::find(libraries, name, &bench::LibraryRow::name);
  require(row != libraries.end(), "finding " + name);
  std::ifstream file(path);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  const double begin = seconds();
  const auto library = row->make();
  require(library->parse(text), "parsing first");
  std::printf("%.9f\n", seconds() - begin);
  return EXIT_SUCCESS;
}

void run_first(benchmark::State &state, const Task &task) {
  const std::string program = std::filesystem::read_symlink("/proc/self/exe");
  const std::string path = program + "." + std::to_string(getpid()) + ".text";
  std::ofstream(path) << task.text;
  const std::string command = program + " --first '" + task.library->name + "' " + path;
  for (auto iteration : state) {
    double taken = 0;
    FILE *const child = popen(command.c_str(), "r");
    require(child != nullptr && std::fscanf(child, "%lf", &taken) == 1, command);
    pclose(child);
    state.SetIterationTime(taken);
  }
  std::filesystem::remove(path);
  state.counters["parts"] = static_cast<double>(task.parts);
}

// ---- What is run ----

double lowest(const std::vector<double> &times) { return *std::ranges::min_element(times); }

// Whatever else a machine does only adds to a time: the lowest one counts.
void set_up(benchmark::internal::Benchmark *added, int repetitions, std::size_t iterations) {
  const bool counts = RUNNING_ON_VALGRIND != 0;
  added->UseManualTime()->ComputeStatistics("min", lowest)->ReportAggregatesOnly(true);
  added->Repetitions(counts ? 1 : repetitions);
  added->Iterations(counts ? 3 : static_cast<benchmark::IterationCount>(iterations));
}

void add_task(const Task &task) {
  constexpr std::size_t kBytes = 256U << 10U;  // of text in a repetition, or one text
  for (const Step step : {kParse, kSave, kDestroy}) {
    if (task.is_hostile && step == kSave) continue;
    const auto run_step = [&task, step](benchmark::State &state) { run(state, task, step); };
    set_up(benchmark::RegisterBenchmark((task.name + "/" + kStepNames[step]).c_str(), run_step),
           task.text.size() < kBytes ? 60 : 15, 1 + kBytes / task.text.size());
  }
  if (task.name.starts_with("typical/") && RUNNING_ON_VALGRIND == 0) {
    const auto run_it = [&task](benchmark::State &state) { run_first(state, task); };
    set_up(benchmark::RegisterBenchmark((task.name + "/first").c_str(), run_it), 41, 1);
  }
}

// Callgrind takes some fifty times as long, so it gets no shape above this size.
constexpr std::size_t kLargestCounted = 1U << 20U;

std::list<Task> make_tasks() {
  std::list<Task> tasks;
  for (const bench::Shape &shape : bench::shapes()) {
    const std::string sil = shape.make();
    if (RUNNING_ON_VALGRIND != 0 && sil.size() > kLargestCounted) continue;
    const bench::Texts texts = shape.is_hostile ? bench::Texts{sil, {}, {}} : bench::make_texts(sil);
    const std::size_t parts = bench::parts(shape, sil);
    for (const bench::LibraryRow &library : bench::libraries()) {
      if (shape.is_hostile && &library != bench::libraries().data()) break;
      const std::string name = std::string(shape.name) + "/" + library.name;
      tasks.push_back({name, &library, shape.is_hostile, texts.*library.text, parts});
    }
  }
  return tasks;
}

}  // namespace

int main(int count, char **arguments) {
  const std::string mode = count > 1 ? arguments[1] : "";
  if (mode == "--first" && count == 4) return parse_first(arguments[2], arguments[3]);
  if (mode == "--instructions") {
    bench::run_under_callgrind(arguments);
    std::swap(arguments[1], arguments[0]);
    ++arguments;
    --count;
  }
  // What is freed stays in the process, so that a tree finds its pages where the last one left them.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, INT_MAX);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
  const std::list<Task> tasks = make_tasks();
  for (const Task &task : tasks) add_task(task);
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}
