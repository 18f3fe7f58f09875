// jt_call_cost: what a call costs among many siblings, in instructions, beside what it costs among few.
// Values are added, inserted, overridden and deleted in several orders, with none, two, half or all of them
// equal; services and attributes are added, found and deleted by name.
//
//   jt_call_cost [WORD]...     only the rows whose name has all the words: jt_call_cost integer delete
//
// Every row goes to standard error as it is measured; then a table with one line a call, its worst row, goes
// to standard output. The status is 1 when a ratio is above what it may be.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "callgrind.h"
#include "jt.hpp"

namespace {

constexpr std::size_t kFew = 1000;
constexpr std::size_t kMany = 100000;
constexpr double kHighestRatio = 1.2;

// A row that takes longer stops there: the calls made by then are its figure, and what is paid once for many
// calls weighs too much in it.
constexpr std::chrono::seconds kPatience(20);

void require(bool holds, const char *what) {
  if (holds) return;
  std::fprintf(stderr, "jt_call_cost: failed: %s\n", what);
  std::exit(2);
}

enum Order { kFront, kBack, kScattered, kAlternating };
constexpr const char *kOrderNames[] = {"front", "back", "scattered", "alternating"};

enum Mix { kNone, kOne, kHalf, kAll };
constexpr const char *kMixNames[] = {"none equal", "two equal", "half equal", "all equal"};

// Which sibling the call of that number is for.
std::size_t place(int order, std::size_t number, std::size_t count) {
  const std::size_t back = count - 1 - number;
  // The stride has no factor in common with the counts.
  const std::size_t places[] = {number, back, number * 7919 % count,
                                number % 2 == 0 ? number / 2 : count - 1 - number / 2};
  return places[order];
}

// Siblings that are made alike. The texts of all have the same length, so that it costs the same to read
// them.
struct Kind {
  const char *name;
  const char *type;  // of the attribute that holds them, when they are values
  const char *prefix;
  const char *suffix;
};

constexpr Kind kKinds[] = {{"integer", "integer", "", ""},    {"string", "string", "value-", ""},
                           {"real", "real", "", ".5"},        {"unknown type", "future", "word-", ""},
                           {"service", nullptr, "name-", ""}, {"attribute", nullptr, "name-", ""}};
using Kinds = std::span<const Kind>;
constexpr Kinds kOfKnownType = Kinds(kKinds).first(3);
constexpr Kinds kOfValues = Kinds(kKinds).first(4);
constexpr Kinds kNamed = Kinds(kKinds).last(2);
constexpr const Kind *kServices = kNamed.data();
constexpr const Kind *kAttributes = &kNamed[1];

constexpr char kScan[] = "Scan";
constexpr char kValues[] = "values";

struct Row {
  const Kind *kind;
  int order;
  int mix;
};

// One measurement: a template with one service, one invocation and, for values, one attribute.
struct Run : Row {
  Run(const Row &row, std::size_t all);

  std::string text(std::size_t number) const {
    return kind->prefix + std::to_string(1000000 + number) + kind->suffix;
  }

  // Two equal: the last is like the first. Half: every second is like the second. All: like the first.
  std::string mixed_text(std::size_t number, std::size_t offset = 0) const {
    const std::size_t like[] = {number, number == count - 1 ? 0 : number, number % 2 == 0 ? number : 1, 0};
    return text(offset + like[mix]);
  }

  const std::size_t count;
  const jt::Session session{"jt_call_cost"};
  jt_parser_space *const space = session.get();
  const int32_t job = jt_create_template(space);
  jt_node *attribute = nullptr;
  const jt_type *type = nullptr;
};

Run::Run(const Row &row, std::size_t all) : Row(row), count(all) {
  require(jt_add_service(space, job, "kmt_svc_scan", kScan) == 1, "adding a service");
  require(jt_add_invocation(space, job, kScan) == 1, "adding an invocation");
  if (kind->type == nullptr) return;
  require(jt_add_attribute(space, job, kScan, kind->type, kValues) == 1, "adding an attribute");
  jt_set_attribute_non_compulsory(space, job, kScan, kValues);
  const int32_t invocation = jt_first_child(space, jt_find_child(space, job, kScan));
  attribute = opaque_to_node(space, jt_find_child(space, invocation, kValues));
  type = jt_get_type(space, kind->type, JT_NODE_VALUE, attribute);
}

// ---- Calls: each with a text, that of a sibling where it needs one; 1 when it did its work ----

using Call = int (*)(const Run &run, const char *text);

int add(const Run &run, const char *text) {
  if (run.kind == kServices) return jt_add_service(run.space, run.job, "kmt_svc_scan", text);
  if (run.kind == kAttributes) return jt_add_attribute(run.space, run.job, kScan, "string", text);
  return jt_add_attribute_value_string(run.space, run.job, kScan, kValues, text);
}

int find(const Run &run, const char *text) {
  if (run.kind == kServices) return jt_exists_service(run.space, run.job, text);
  return jt_exists_attribute(run.space, run.job, kScan, text);
}

int remove(const Run &run, const char *text) {
  if (run.kind == kServices) return jt_delete_service(run.space, run.job, text);
  if (run.kind == kAttributes) return jt_delete_attribute(run.space, run.job, kScan, text);
  return jt_delete_attribute_value_string(run.space, run.job, kScan, kValues, text);
}

int insert_at_cursor(const Run &run, const char *text) {
  jt_node *const node = create_value_node(run.space, run.type, text);
  return node == nullptr ? 0 : add_index_child(run.space, run.attribute, node);
}

int remove_at_cursor(const Run &run, const char *) { return delete_index_child(run.space, run.attribute); }

// ---- Steps: what is repeated, with the number of the repetition, and the counter of its calls ----

using bench::InstructionCounter;

template <Call call>
void count(InstructionCounter &counter, const Run &run, const std::string &text) {
  require(counter([&] { return call(run, text.c_str()); }) == 1, run.kind->name);
}

std::string text_at_place(const Run &run, std::size_t i) {
  return run.mixed_text(place(run.order, i, run.count));
}

// At the front or on the last; scattered: a few further than it was.
void move_cursor(const Run &run) {
  if (run.order == kFront || run.order == kAlternating) reset_index(run.space, run.attribute);
  if (run.order != kScattered) return;
  for (int step = 0; step < 3; ++step) {
    if (advance_index(run.space, run.attribute) == 0) reset_index(run.space, run.attribute);
  }
}

template <Call call>
void by_text(const Run &run, std::size_t i, InstructionCounter &counter) {
  count<call>(counter, run, text_at_place(run, i));
}

void add_value(const Run &run, std::size_t i, InstructionCounter &counter) {
  count<add>(counter, run, run.mixed_text(run.count / 2 + i));
}

// Alternating: every second one is added at the end.
void insert(const Run &run, std::size_t i, InstructionCounter &counter) {
  move_cursor(run);
  const auto step = run.order == kAlternating && i % 2 != 0 ? count<add> : count<insert_at_cursor>;
  step(counter, run, run.mixed_text(run.count / 2 + i));
}

void remove_there(const Run &run, std::size_t, InstructionCounter &counter) {
  move_cursor(run);
  count<remove_at_cursor>(counter, run, "");
}

// Whatever a list remembers of equal values, an insertion before them makes it wrong and a deletion asks for
// it.
void insert_and_remove(const Run &run, std::size_t i, InstructionCounter &counter) {
  move_cursor(run);
  count<insert_at_cursor>(counter, run, run.mixed_text(place(kScattered, i, run.count)));
  count<remove>(counter, run, text_at_place(run, i));
}

void override_value(const Run &run, const std::string &from, const std::string &to,
                    InstructionCounter &counter) {
  const char *const name = run.kind->type;
  jt_value *const old_value = jt_decode_value(run.space, name, from.c_str(), kScan);
  jt_value *const new_value = jt_decode_value(run.space, name, to.c_str(), kScan);
  const int done = counter(
      [&] { return jt_override_attribute_value(run.space, run.job, kScan, kValues, old_value, new_value); });
  require(done == 1, "overriding");
  jt_destroy_value(run.space, name, old_value, kScan);
  jt_destroy_value(run.space, name, new_value, kScan);
}

// Values that differ become a mix.
void make_equal(const Run &run, std::size_t i, InstructionCounter &counter) {
  const std::size_t at = place(run.order, i, run.count);
  override_value(run, run.text(at), run.mixed_text(at, run.count), counter);
}

// A mix becomes values that differ.
void make_different(const Run &run, std::size_t i, InstructionCounter &counter) {
  const std::size_t at = place(run.order, i, run.count);
  override_value(run, run.mixed_text(at), run.text(run.count + at), counter);
}

// ---- What is measured ----

struct Measured {
  const char *name;
  void (*step)(const Run &run, std::size_t i, InstructionCounter &counter);
  int halves;  // of the siblings, that are there before; the steps are for one half
  Kinds kinds;
  Order last_order;  // those before it are measured too, as are the mixes
  Mix last_mix;
};

const Measured kMeasured[] = {
    {"add a value", add_value, 1, kOfValues, kFront, kAll},
    {"insert at the cursor", insert, 1, kOfValues, kAlternating, kAll},
    {"override, equal afterwards", make_equal, 2, kOfKnownType, kAlternating, kAll},
    {"override, equal before", make_different, 2, kOfKnownType, kAlternating, kAll},
    {"delete a value", by_text<remove>, 2, kOfValues, kAlternating, kAll},
    {"delete at the cursor", remove_there, 2, kOfValues, kScattered, kAll},
    {"insert and delete", insert_and_remove, 2, kOfValues, kScattered, kAll},
    {"add a name", by_text<add>, 0, kNamed, kAlternating, kNone},
    {"find a name", by_text<find>, 2, kNamed, kAlternating, kNone},
    {"delete a name", by_text<remove>, 2, kNamed, kAlternating, kNone},
};

// Adds the siblings that are there before, and sets the cursor of values on the last. The search at the end
// is one that passes them all, so that whatever the library keeps for a long list is there before anything is
// counted.
void fill(const Run &run, std::size_t siblings, bool mixed) {
  for (std::size_t i = 0; i < siblings; ++i) {
    require(add(run, (mixed ? run.mixed_text(i) : run.text(i)).c_str()) == 1, "filling");
  }
  if (run.attribute == nullptr) return;
  const std::string sought = run.text(2 * run.count);
  require(add(run, sought.c_str()) == 1 && remove(run, sought.c_str()) == 1, "searching");
  reset_index(run.space, run.attribute);
  for (std::size_t i = 1; i < siblings; ++i) advance_index(run.space, run.attribute);
}

// The instructions of a call.
double measure(const Measured &measured, const Row &row, std::size_t count) {
  const Run run(row, count);
  const std::size_t steps = count / 2;
  fill(run, steps * measured.halves, measured.step != make_equal);
  InstructionCounter counter;
  const auto end = std::chrono::steady_clock::now() + kPatience;
  for (std::size_t i = 0; i < steps && (i % 16 != 0 || std::chrono::steady_clock::now() < end); ++i) {
    measured.step(run, i, counter);
  }
  return counter.mean();
}

// Shows every row that has all the words, and prints the worst of them; its ratio, or 0 when there is none.
double measure_rows(const Measured &measured, const std::vector<Row> &rows,
                    const std::vector<std::string> &words) {
  double worst = 0;
  std::string line;
  for (const Row &row : rows) {
    const std::string where =
        std::string(row.kind->name) + ", " + kOrderNames[row.order] + ", " + kMixNames[row.mix];
    const std::string name = std::string(measured.name) + ": " + where;
    const auto has = [&](const std::string &word) { return name.find(word) != std::string::npos; };
    if (!std::ranges::all_of(words, has)) continue;
    const double few = measure(measured, row, kFew);
    const double many = measure(measured, row, kMany);
    char figures[80];
    std::snprintf(figures, sizeof figures, "%.0f | %.0f | %.2f", few, many, many / few);
    std::fprintf(stderr, "%s | %s\n", name.c_str(), figures);
    if (many / few < worst) continue;
    worst = many / few;
    line = std::string("| ") + measured.name + " | " + figures + " | " + where + " |\n";
  }
  std::fputs(line.c_str(), stdout);
  return worst;
}

std::vector<Row> rows_of(const Measured &measured) {
  std::vector<Row> rows;
  for (const Kind &kind : measured.kinds) {
    for (int order = kFront; order <= measured.last_order; ++order) {
      for (int mix = kNone; mix <= measured.last_mix; ++mix) rows.push_back({&kind, order, mix});
    }
  }
  return rows;
}

}  // namespace

int main(int count, char **arguments) {
  bench::run_under_callgrind(arguments);
  const std::vector<std::string> words(arguments + 1, arguments + count);
  std::fputs(
      "| instructions of a call | 1,000 siblings | 100,000 | ratio | worst in |\n"
      "| --- | ---: | ---: | ---: | --- |\n",
      stdout);
  double worst = 0;
  for (const Measured &measured : kMeasured) {
    worst = std::max(worst, measure_rows(measured, rows_of(measured), words));
  }
  return worst <= kHighestRatio ? EXIT_SUCCESS : EXIT_FAILURE;
}
