// The program: takes its own options out of the command line, leaves the rest to Google Benchmark, runs
// everything, and writes the tables between two marks of a document.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>

#include "api_cost.h"
#include "figures.h"
#include "instructions.h"

namespace {

using bench::Heap;
using bench::Step;
using bench::Task;

constexpr char kUsage[] =
    "usage: jt_bench [OPTION]... [--benchmark_OPTION]...\n"
    "  --update FILE            replace what is between <!-- figures --> and <!-- end of figures --> in "
    "FILE\n"
    "  --instructions           count instructions as well (needs valgrind)\n"
    "  --heap-32 BYTES          bytes per attribute that jt_footprint printed on a 32-bit target\n"
    "  --library-x86-64 BYTES   size of the stripped shared library, and of that for powerpc:\n"
    "  --library-powerpc BYTES\n"
    "  --callgrind LIBRARY SHAPE STEP   nothing but some lives of one task, for valgrind; STEP is parse, "
    "save\n"
    "                           or destroy\n"
    "The tables go to standard output, progress to standard error; there are no tables when a filter leaves "
    "out\n"
    "shapes or libraries.\n";

struct Options {
  std::string document;
  bool instructions = false;
  std::vector<std::string> callgrind;
  bench::Sizes sizes;
  std::vector<char *> rest;
};

[[noreturn]] void refuse() {
  std::fputs(kUsage, stderr);
  std::exit(2);
}

// What --benchmark_... options on the command line override. About three minutes on an idle machine.
char kDefaults[][64] = {"--benchmark_repetitions=11", "--benchmark_min_time=0.02",
                        "--benchmark_enable_random_interleaving=true"};

Options read_options(int count, char **words) {
  Options options;
  options.rest.push_back(words[0]);
  for (char *const word : kDefaults) options.rest.push_back(word);
  int at = 1;
  const auto next = [&] {
    if (at == count) refuse();
    return words[at++];
  };
  const auto size = [&] { return std::strtod(next(), nullptr); };
  const std::map<std::string, std::function<void()>> known = {
      {"--update", [&] { options.document = next(); }},
      {"--instructions", [&] { options.instructions = true; }},
      {"--heap-32", [&] { options.sizes.heap_32_bits = size(); }},
      {"--library-x86-64", [&] { options.sizes.library_x86_64 = size() / 1000; }},
      {"--library-powerpc", [&] { options.sizes.library_powerpc = size() / 1000; }},
      {"--help", [] { std::exit(std::fputs(kUsage, stdout) < 0 ? EXIT_FAILURE : EXIT_SUCCESS); }},
      {"--callgrind",
       [&] {
         options.callgrind = {next(), next(), next()};
       }},
  };
  while (at < count) {
    char *const word = next();
    const auto option = known.find(word);
    if (option == known.end()) {
      options.rest.push_back(word);
    } else {
      option->second();
    }
  }
  return options;
}

// The row of that name; a wrong one ends the program.
template <typename Rows, typename Name>
auto find_named(const Rows &rows, const std::string &name, Name name_of) {
  for (const auto &row : rows) {
    if (name == name_of(row)) return row;
  }
  refuse();
}

int run_for_callgrind(const std::vector<std::string> &names) {
  const bench::LibraryRow library =
      find_named(bench::libraries(), names[0], [](const bench::LibraryRow &row) { return row.name; });
  const bench::Shape shape =
      find_named(bench::kShapes, names[1], [](bench::Shape row) { return bench::name_of(row); });
  const Step step = find_named(bench::kSteps, names[2], [](Step row) { return bench::name_of(row); });
  const Task task = bench::make_task(library, shape);
  std::printf("attributes %zu\n", task.counts.attributes);
  bench::run_for_callgrind(task, step);
  return EXIT_SUCCESS;
}

// Shows progress on standard error. Of the repetitions it keeps the lowest median of each time: whatever else
// a machine does, and a slower clock, only add to it.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context &context) override {
    PrintBasicContext(&std::cerr, context);
    return true;
  }

  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
      const std::string name = run.run_name.function_name;
      std::fprintf(stderr, "%s:", name.c_str());
      for (const auto &[counter, value] : run.counters) {
        std::fprintf(stderr, " %s %.0f", counter.c_str(), value.value);
        const auto [figure, is_first] = figures_[name].try_emplace(counter, value);
        if (!is_first) figure->second = std::min(figure->second, value.value);
      }
      std::fprintf(stderr, "\n");
    }
  }

  const std::map<std::string, std::map<std::string, double>> &figures() const { return figures_; }

  // Not if a filter has left some out.
  bool has_all(const std::vector<Task> &tasks) const {
    return std::ranges::all_of(tasks, [this](const Task &task) {
      return figures_.contains(bench::benchmark_name(task, Heap::kWarm)) &&
             figures_.contains(bench::benchmark_name(task, Heap::kCold));
    });
  }

 private:
  std::map<std::string, std::map<std::string, double>> figures_;
};

std::map<Step, double> times_of(const Collector &collector, const Task &task, Heap heap) {
  const std::map<std::string, double> &figures = collector.figures().at(bench::benchmark_name(task, heap));
  std::map<Step, double> times;
  for (const Step step : bench::kSteps) times[step] = figures.at(bench::name_of(step));
  return times;
}

// Callgrind takes some fifty times as long, so the small shapes only.
std::map<Step, double> instructions_of(const Task &task) {
  std::map<Step, double> instructions;
  if (task.shape != bench::Shape::kTypical && task.shape != bench::Shape::kMedium) return instructions;
  std::fprintf(stderr, "callgrind: %s/%s\n", bench::name_of(task.shape), task.library->name);
  for (const Step step : bench::kSteps) {
    const std::optional<double> counted = bench::count_instructions(task, step);
    bench::require(counted.has_value(), "counting instructions with valgrind");
    instructions[step] = *counted;
  }
  return instructions;
}

bench::Results collect(const std::vector<Task> &tasks, const Collector &collector, const Options &options) {
  bench::Results results = {{}, collector.figures(), options.sizes};
  for (const Task &task : tasks) {
    results.figures.push_back({&task, bench::measure_heap(task), times_of(collector, task, Heap::kWarm),
                               times_of(collector, task, Heap::kCold),
                               options.instructions ? instructions_of(task) : std::map<Step, double>()});
  }
  return results;
}

void update(const std::string &path, const std::string &tables) {
  constexpr std::string_view kBegin = "<!-- figures -->\n";
  constexpr std::string_view kEnd = "<!-- end of figures -->";
  std::stringstream content;
  content << std::ifstream(path).rdbuf();
  std::string text = content.str();
  const std::size_t begin = text.find(kBegin);
  const std::size_t end = text.find(kEnd);
  bench::require(begin != std::string::npos && end != std::string::npos, "finding the marks in " + path);
  text.replace(begin + kBegin.size(), end - begin - kBegin.size(), "\n" + tables + "\n");
  bench::require(bool(std::ofstream(path) << text), "writing " + path);
}

}  // namespace

int main(int count, char **words) {
  Options options = read_options(count, words);
  bench::keep_freed_memory();
  if (!options.callgrind.empty()) return run_for_callgrind(options.callgrind);
  int rest = static_cast<int>(options.rest.size());
  benchmark::Initialize(&rest, options.rest.data());
  if (benchmark::ReportUnrecognizedArguments(rest, options.rest.data())) refuse();
  const std::vector<Task> tasks = bench::make_tasks();
  for (const Task &task : tasks) bench::register_life_cycles(task);
  bench::register_api_costs();
  Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  if (!collector.has_all(tasks)) return EXIT_SUCCESS;
  const std::string tables = bench::to_markdown(collect(tasks, collector, options));
  std::fputs(tables.c_str(), stdout);
  if (!options.document.empty()) update(options.document, tables);
  return EXIT_SUCCESS;
}
