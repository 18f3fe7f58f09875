// The tables, from the shapes to the instructions.
#include "figures.h"

#include <gnu/libc-version.h>

#include <algorithm>
#include <fstream>

#include "api_cost.h"
#include "markdown.h"

namespace bench {
namespace {

std::string processor() {
  std::ifstream file("/proc/cpuinfo");
  constexpr std::string_view kModel = "model name";
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kModel)) return line.substr(line.find(':') + 2);
  }
  return "unknown processor";
}

// clang++ names itself there, g++ does not.
std::string compiler() {
  const std::string version = __VERSION__;
  return version.find("lang") == std::string::npos ? std::string("g++ ").append(version) : version;
}

std::string circumstances() {
  std::string text = "Measured on " + processor() + " with " + compiler() + " and glibc ";
  text += gnu_get_libc_version();
  const char *separator = ": ";
  for (const LibraryRow &library : libraries()) {
    if (std::string_view(library.name).find(',') != std::string_view::npos) continue;
    text.append(separator).append(library.name).append(" ").append(library.version());
    separator = ", ";
  }
  return text + ".\n";
}

std::string shapes_table(const Results &results) {
  Table table({"shape", "services", "attributes", "values", "bytes of SIL", "of XML", "of JSON"});
  for (const Shape shape : kShapes) {
    const Task &task = *results.of(shape, "jt").task;
    std::vector<std::string> row = {name_of(shape)};
    for (const std::size_t count : {task.counts.services, task.counts.attributes, task.counts.values}) {
      row.push_back(std::to_string(count));
    }
    for (const char *const library : {"jt", "pugixml", "cJSON"}) {
      row.push_back(std::to_string(results.of(shape, library).task->text.size()));
    }
    table.add(std::move(row));
  }
  return table.text();
}

std::string megabytes_per_second(const Figures &figures) {
  return number(static_cast<double>(figures.task->text.size()) * 1000 / figures.warm.at(Step::kParse));
}

std::string times_table(const Results &results, Shape shape) {
  Table table({name_of(shape), "parse", "MB/s", "save", "destroy", "parse, cold", "save, cold", "mallocs",
               "heap bytes", "at most"});
  for (const LibraryRow &library : libraries()) {
    const Figures &figures = results.of(shape, library.name);
    const double facts = figures.facts();
    const auto share = [facts](auto value) { return number(static_cast<double>(value) / facts); };
    table.add({library.name, share(figures.warm.at(Step::kParse)), megabytes_per_second(figures),
               share(figures.warm.at(Step::kSave)), share(figures.warm.at(Step::kDestroy)),
               share(figures.cold.at(Step::kParse)), share(figures.cold.at(Step::kSave)),
               share(figures.heap.calls), share(figures.heap.live), share(figures.heap.highest)});
  }
  return table.text();
}

// A ratio above 1 is one that jt loses.
std::string ratios_table(const Results &results) {
  Table table({"jt / other", "parse", "save", "destroy", "parse, cold", "save, cold", "heap bytes"});
  for (const Shape shape : kShapes) {
    const Figures &own = results.of(shape, "jt");
    for (const LibraryRow &library : libraries().subspan(1)) {
      const Figures &other = results.of(shape, library.name);
      std::vector<std::string> row = {std::string(name_of(shape)) + " / " + library.name};
      for (const Step step : kSteps) row.push_back(number(own.warm.at(step) / other.warm.at(step)));
      for (const Step step : {Step::kParse, Step::kSave}) {
        row.push_back(number(own.cold.at(step) / other.cold.at(step)));
      }
      row.push_back(number(static_cast<double>(own.heap.live) / static_cast<double>(other.heap.live)));
      table.add(std::move(row));
    }
  }
  return table.text();
}

std::optional<double> cost_of(const Results &results, const char *kind, std::size_t count, const char *call) {
  const auto benchmark = results.api.find(api_benchmark_name(kind, count));
  if (benchmark == results.api.end()) return std::nullopt;
  const auto cost = benchmark->second.find(call);
  return cost == benchmark->second.end() ? std::nullopt : std::optional(cost->second);
}

std::string calls_table(const Results &results) {
  Table table({"call", "1,000", "10,000", "100,000", "100,000 / 1,000"});
  for (const char *const kind : sibling_kinds()) {
    for (const char *const call : call_names()) {
      const std::optional<double> few = cost_of(results, kind, kSiblingCounts.front(), call);
      if (!few) continue;
      std::vector<std::string> row = {std::string(kind) + ": " + call};
      for (const std::size_t count : kSiblingCounts)
        row.push_back(number(cost_of(results, kind, count, call)));
      row.push_back(number(*cost_of(results, kind, kSiblingCounts.back(), call) / *few));
      table.add(std::move(row));
    }
  }
  return table.text();
}

std::string instructions_table(const Results &results) {
  Table table({"instructions", "parse", "save", "destroy"});
  for (const Figures &figures : results.figures) {
    if (figures.instructions.empty()) continue;
    std::vector<std::string> row = {std::string(name_of(figures.task->shape)) + ", " +
                                    figures.task->library->name};
    for (const Step step : kSteps) row.push_back(number(figures.instructions.at(step) / figures.facts(), 0));
    table.add(std::move(row));
  }
  return table.text();
}

std::string chapter(const char *title, const std::string &body) {
  std::string text = "\n### ";
  text += title;
  text += "\n\n";
  return text + body;
}

}  // namespace

double Figures::facts() const {
  const Counts &counts = task->counts;
  return static_cast<double>(counts.attributes > 1 ? counts.attributes : counts.values);
}

double Figures::warm_per_fact(Step step) const { return warm.at(step) / facts(); }

const Figures &Results::of(Shape shape, const std::string &library) const {
  const auto found = std::ranges::find_if(figures, [&](const Figures &candidate) {
    return candidate.task->shape == shape && candidate.task->library->name == library;
  });
  require(found != figures.end(), "finding the figures of " + library);
  return *found;
}

std::string to_markdown(const Results &results) {
  std::string text = circumstances();
  text += chapter("Targets", targets_to_markdown(results));
  text += chapter("Shapes", shapes_table(results));
  text += "\n### Times, mallocs and heap bytes per attribute; for \"long\" per value\n";
  for (const Shape shape : kShapes) text.append("\n").append(times_table(results, shape));
  text += chapter("jt beside the others; above 1 jt loses", ratios_table(results));
  text += chapter("Nanoseconds per call among siblings", calls_table(results));
  text += chapter("Instructions per attribute", instructions_table(results));
  return text;
}

}  // namespace bench
