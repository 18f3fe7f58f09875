// The targets: each is a figure of jt, mostly a ratio to another figure of the same run, with the number that
// it must stay below and the one that it aims at.
#include <algorithm>

#include "api_cost.h"
#include "figures.h"
#include "markdown.h"

namespace bench {
namespace {

constexpr char kJt[] = "jt";

using Measured = std::optional<double>;

struct Target {
  std::string what;
  Measured measured;
  double must;
  double aim;
};

double decode(const Results &results, Shape shape, const char *library = kJt) {
  return results.of(shape, library).warm_per_fact(Step::kParse);
}

// jt's step beside the same step of another library.
Target beside(const Results &results, const char *verb, Step step, Shape shape, const char *library,
              double must, double aim) {
  const double own = results.of(shape, kJt).warm_per_fact(step);
  const double other = results.of(shape, library).warm_per_fact(step);
  return {std::string(verb) + ", " + name_of(shape) + " / " + library, own / other, must, aim};
}

void add_times(const Results &results, std::vector<Target> &targets) {
  for (const Shape shape : {Shape::kTypical, Shape::kLarge}) {
    targets.push_back(beside(results, "decode", Step::kParse, shape, "pugixml, converted", 0.8, 0.35));
  }
  for (const char *const library : {"cJSON", "libxml2"}) {
    for (const Shape shape : {Shape::kTypical, Shape::kLarge}) {
      targets.push_back(beside(results, "decode", Step::kParse, shape, library, 0.5, 0.2));
    }
  }
  for (const Shape shape : {Shape::kTypical, Shape::kLarge}) {
    targets.push_back(beside(results, "encode", Step::kSave, shape, "pugixml", 1.0, 0.5));
  }
  for (const Shape shape : {Shape::kTypical, Shape::kLarge}) {
    const double destroy = results.of(shape, kJt).warm_per_fact(Step::kDestroy);
    targets.push_back({std::string("destroy, ") + name_of(shape) + " / jt's own decode",
                       destroy / decode(results, shape), 0.15, 0.03});
  }
}

double heap_per_fact(const Figures &figures) {
  return static_cast<double>(figures.heap.live) / figures.facts();
}

void add_heap(const Results &results, std::vector<Target> &targets) {
  for (const Shape shape : {Shape::kTypical, Shape::kLarge}) {
    targets.push_back({std::string("heap bytes per attribute, ") + name_of(shape) + " / pugixml",
                       heap_per_fact(results.of(shape, kJt)) / heap_per_fact(results.of(shape, "pugixml")),
                       1.0, 0.6});
  }
  targets.push_back({"heap bytes per attribute, large, 32 bits", results.sizes.heap_32_bits, 240, 160});
  const Figures &large = results.of(Shape::kLarge, kJt);
  targets.push_back({"mallocs per attribute while decoding, large",
                     static_cast<double>(large.heap.calls) / large.facts(), 0.1, 0.01});
}

// "long" is measured per value, so "typical" is too, beside it.
void add_growth(const Results &results, std::vector<Target> &targets) {
  const double typical = decode(results, Shape::kTypical);
  const Counts &counts = results.of(Shape::kTypical, kJt).task->counts;
  const double typical_value =
      typical * static_cast<double>(counts.attributes) / static_cast<double>(counts.values);
  targets.push_back(
      {"decode per attribute, large / typical", decode(results, Shape::kLarge) / typical, 2.0, 1.3});
  targets.push_back(
      {"decode per attribute, wide / typical", decode(results, Shape::kWide) / typical, 2.0, 1.3});
  targets.push_back(
      {"decode per value, long / typical", decode(results, Shape::kLong) / typical_value, 2.0, 1.3});
}

// The worst ratio over all calls on a kind of siblings, made in the order of the siblings.
Target worst_call(const Results &results, const char *kind) {
  Target worst = {"", std::nullopt, 1.5, 1.1};
  const auto few = results.api.find(api_benchmark_name(kind, kSiblingCounts.front()));
  const auto many = results.api.find(api_benchmark_name(kind, kSiblingCounts.back()));
  if (few == results.api.end() || many == results.api.end()) return worst;
  for (const auto &[call, nanoseconds] : many->second) {
    if (call == kScatteredFind) continue;
    const double ratio = nanoseconds / few->second.at(call);
    if (worst.measured && *worst.measured >= ratio) continue;
    worst.what = std::string("calls on ") + kind + ", 100,000 / 1,000 siblings; worst: " + call;
    worst.measured = ratio;
  }
  return worst;
}

const char *verdict(const Target &target) {
  if (!target.measured) return "not measured";
  if (*target.measured <= target.aim) return "aim";
  return *target.measured <= target.must ? "must" : "NO";
}

}  // namespace

std::string targets_to_markdown(const Results &results) {
  std::vector<Target> targets;
  add_times(results, targets);
  add_heap(results, targets);
  add_growth(results, targets);
  for (const char *const kind : sibling_kinds()) targets.push_back(worst_call(results, kind));
  targets.push_back({"stripped shared library, x86-64, KB", results.sizes.library_x86_64, 200, 120});
  targets.push_back({"stripped shared library, powerpc, KB", results.sizes.library_powerpc, 200, 120});
  Table table({"figure", "measured", "must", "aim", "reached"});
  for (const Target &target : targets) {
    table.add(
        {target.what, number(target.measured), number(target.must), number(target.aim), verdict(target)});
  }
  return table.text();
}

}  // namespace bench
