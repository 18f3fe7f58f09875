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
#include <optional>
#include <string>
#include <vector>

#include "callgrind.h"
#include "jt.h"

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
std::size_t place(Order order, std::size_t number, std::size_t count) {
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

constexpr Kind kIntegers = {"integer", "integer", "", ""};
constexpr Kind kStrings = {"string", "string", "value-", ""};
constexpr Kind kReals = {"real", "real", "", ".5"};
constexpr Kind kUnknown = {"unknown type", "future", "word-", ""};
constexpr Kind kServices = {"service", nullptr, "name-", ""};
constexpr Kind kAttributes = {"attribute", nullptr, "name-", ""};

constexpr char kScan[] = "Scan";
constexpr char kValues[] = "values";

struct Row {
  const Kind *kind;
  Order order;
  Mix mix;
};

// One measurement: a template with one service, one invocation and, for values, one attribute.
struct Run {
  Run(const Row &row, std::size_t count);
  ~Run() { jt_close_parsing_utility(space); }
  Run(const Run &) = delete;
  Run &operator=(const Run &) = delete;

  std::string text(std::size_t number) const {
    return kind.prefix + std::to_string(1000000 + number) + kind.suffix;
  }

  // Two equal: the last is like the first. Half: every second is like the second. All: like the first.
  std::string mixed_text(std::size_t number, std::size_t offset = 0) const {
    const std::size_t like[] = {number, number == count - 1 ? 0 : number, number % 2 == 0 ? number : 1, 0};
    return text(offset + like[mix]);
  }

  // Makes a call that is counted; false when the row has taken too long.
  template <typename Call>
  bool counted(Call call) {
    if (!counter) {
      counter.emplace();
      end = std::chrono::steady_clock::now() + kPatience;
    }
    require((*counter)(call), kind.name);
    return ++calls % 16 != 0 || std::chrono::steady_clock::now() < end;
  }

  // Makes the calls 0 to `most` - 1, each with its number; `call` returns what counted() does.
  template <typename Call>
  void repeat(std::size_t most, Call call) {
    for (std::size_t number = 0; number < most && call(number); ++number) continue;
  }

  const Kind &kind;
  const Order order;
  const Mix mix;
  const std::size_t count;
  jt_parser_space *const space = jt_open_parsing_utility("jt_call_cost");
  const int32_t job = jt_create_template(space);
  jt_node *attribute = nullptr;
  const jt_type *type = nullptr;
  std::optional<bench::InstructionCounter> counter;
  std::chrono::steady_clock::time_point end;
  std::size_t calls = 0;
};

Run::Run(const Row &row, std::size_t the_count)
    : kind(*row.kind), order(row.order), mix(row.mix), count(the_count) {
  require(jt_add_service(space, job, "kmt_svc_scan", kScan) == 1, "adding a service");
  require(jt_add_invocation(space, job, kScan) == 1, "adding an invocation");
  if (kind.type == nullptr) return;
  require(jt_set_invocation_name(space, job, kScan, "first") == 1, "naming the invocation");
  require(jt_add_attribute(space, job, kScan, kind.type, kValues) == 1, "adding an attribute");
  jt_set_attribute_non_compulsory(space, job, kScan, kValues);
  jt_node *const service = get_child(space, opaque_to_node(space, job), kScan);
  attribute = get_child(space, get_child(space, service, "first"), kValues);
  type = jt_get_type(space, kind.type, JT_NODE_VALUE, attribute);
}

// ---- Values ----

bool add_value(const Run &run, const std::string &text) {
  return jt_add_attribute_value_string(run.space, run.job, kScan, kValues, text.c_str()) == 1;
}

bool delete_value(const Run &run, const std::string &text) {
  return jt_delete_attribute_value_string(run.space, run.job, kScan, kValues, text.c_str()) == 1;
}

bool insert_value(const Run &run, const std::string &text) {
  jt_node *const node = create_value_node(run.space, run.type, text.c_str());
  return node != nullptr && add_index_child(run.space, run.attribute, node) == 1;
}

// Adds the values of these numbers. The search at the end is one that passes them all, so that whatever the
// library keeps for a long list is there before anything is counted.
void fill(const Run &run, std::size_t end, bool mixed) {
  for (std::size_t i = 0; i < end; ++i) {
    require(add_value(run, mixed ? run.mixed_text(i) : run.text(i)), "filling");
  }
  const std::string sought = run.text(2 * run.count);
  require(add_value(run, sought) && delete_value(run, sought), "searching");
}

// At the front or on the last; scattered: a few further than it was.
void move_cursor(const Run &run) {
  if (run.order == kFront || run.order == kAlternating) reset_index(run.space, run.attribute);
  if (run.order != kScattered) return;
  for (int step = 0; step < 3; ++step) {
    if (advance_index(run.space, run.attribute) == 0) reset_index(run.space, run.attribute);
  }
}

void set_cursor_on_last(const Run &run, std::size_t values) {
  reset_index(run.space, run.attribute);
  for (std::size_t i = 1; i < values; ++i) advance_index(run.space, run.attribute);
}

void add(Run &run) {
  const std::size_t before = run.count / 2;
  fill(run, before, true);
  run.repeat(run.count - before, [&](std::size_t i) {
    const std::string text = run.mixed_text(before + i);
    return run.counted([&] { return add_value(run, text); });
  });
}

// Alternating: every second one is added at the end.
void insert(Run &run) {
  const std::size_t before = run.count / 2;
  fill(run, before, true);
  set_cursor_on_last(run, before);
  run.repeat(run.count - before, [&](std::size_t i) {
    const std::string text = run.mixed_text(before + i);
    move_cursor(run);
    const auto call = run.order == kAlternating && i % 2 != 0 ? add_value : insert_value;
    return run.counted([&] { return call(run, text); });
  });
}

void remove(Run &run) {
  fill(run, run.count, true);
  run.repeat(run.count / 2, [&](std::size_t i) {
    const std::string text = run.mixed_text(place(run.order, i, run.count));
    return run.counted([&] { return delete_value(run, text); });
  });
}

void remove_at_cursor(Run &run) {
  fill(run, run.count, true);
  set_cursor_on_last(run, run.count);
  run.repeat(run.count / 2, [&](std::size_t) {
    move_cursor(run);
    return run.counted([&] { return delete_index_child(run.space, run.attribute) == 1; });
  });
}

// Whatever a list remembers of equal values, an insertion before them makes it wrong and a deletion asks for
// it.
void insert_and_remove(Run &run) {
  fill(run, run.count, true);
  run.repeat(run.count / 2, [&](std::size_t i) {
    const std::string inserted = run.mixed_text(place(kScattered, i, run.count));
    const std::string deleted = run.mixed_text(place(run.order, i, run.count));
    move_cursor(run);
    return run.counted([&] { return insert_value(run, inserted); }) &&
           run.counted([&] { return delete_value(run, deleted); });
  });
}

// Values that differ become a mix, or a mix becomes values that differ.
template <bool mixed_before>
void override_value(Run &run) {
  fill(run, run.count, mixed_before);
  run.repeat(run.count / 2, [&](std::size_t i) {
    const std::size_t at = place(run.order, i, run.count);
    const std::string from = mixed_before ? run.mixed_text(at) : run.text(at);
    const std::string to = mixed_before ? run.text(run.count + at) : run.mixed_text(at, run.count);
    jt_value *const old_value = jt_decode_value(run.space, run.kind.type, from.c_str(), kScan);
    jt_value *const new_value = jt_decode_value(run.space, run.kind.type, to.c_str(), kScan);
    const bool goes_on = run.counted([&] {
      return jt_override_attribute_value(run.space, run.job, kScan, kValues, old_value, new_value) == 1;
    });
    jt_destroy_value(run.space, run.kind.type, old_value, kScan);
    jt_destroy_value(run.space, run.kind.type, new_value, kScan);
    return goes_on;
  });
}

// ---- Services and attributes: their names differ ----

bool add_named(const Run &run, const std::string &name) {
  return &run.kind == &kServices ? jt_add_service(run.space, run.job, "kmt_svc_scan", name.c_str()) == 1
                                 : jt_add_attribute(run.space, run.job, kScan, "string", name.c_str()) == 1;
}

bool find_named(const Run &run, const std::string &name) {
  return &run.kind == &kServices ? jt_exists_service(run.space, run.job, name.c_str()) == 1
                                 : jt_exists_attribute(run.space, run.job, kScan, name.c_str()) == 1;
}

bool remove_named(const Run &run, const std::string &name) {
  return &run.kind == &kServices ? jt_delete_service(run.space, run.job, name.c_str()) == 1
                                 : jt_delete_attribute(run.space, run.job, kScan, name.c_str()) == 1;
}

// The call for half of the siblings, each by its name.
template <bool (*call)(const Run &run, const std::string &name)>
void call_by_name(Run &run) {
  const std::size_t before = call == add_named ? 0 : run.count;
  for (std::size_t i = 0; i < before; ++i) require(add_named(run, run.text(i)), "filling");
  run.repeat(run.count / 2, [&](std::size_t i) {
    const std::string name = run.text(place(run.order, i, run.count));
    return run.counted([&] { return call(run, name); });
  });
}

// ---- The rows ----

using Kinds = std::vector<const Kind *>;

struct Call {
  const char *name;
  void (*run)(Run &run);
  Kinds kinds;
  std::vector<Order> orders;
  std::vector<Mix> mixes;
};

const Kinds kOfValues = {&kIntegers, &kStrings, &kReals, &kUnknown};
const Kinds kOfKnownType = {&kIntegers, &kStrings, &kReals};
const Kinds kNamed = {&kServices, &kAttributes};
const std::vector<Order> kAllOrders = {kFront, kBack, kScattered, kAlternating};
const std::vector<Order> kCursors = {kFront, kBack, kScattered};
const std::vector<Mix> kAllMixes = {kNone, kOne, kHalf, kAll};

const Call kCalls[] = {
    {"add a value", add, kOfValues, {kFront}, kAllMixes},
    {"insert at the cursor", insert, kOfValues, kAllOrders, kAllMixes},
    {"override, equal afterwards", override_value<false>, kOfKnownType, kAllOrders, kAllMixes},
    {"override, equal before", override_value<true>, kOfKnownType, kAllOrders, kAllMixes},
    {"delete a value", remove, kOfValues, kAllOrders, kAllMixes},
    {"delete at the cursor", remove_at_cursor, kOfValues, kCursors, kAllMixes},
    {"insert and delete", insert_and_remove, kOfValues, kCursors, kAllMixes},
    {"add a name", call_by_name<add_named>, kNamed, kAllOrders, {kNone}},
    {"find a name", call_by_name<find_named>, kNamed, kAllOrders, {kNone}},
    {"delete a name", call_by_name<remove_named>, kNamed, kAllOrders, {kNone}},
};

double measure(const Row &row, const Call &call, std::size_t count) {
  Run run(row, count);
  call.run(run);
  return static_cast<double>(run.counter->take()) / static_cast<double>(run.calls);
}

std::vector<Row> rows_of(const Call &call) {
  std::vector<Row> rows;
  for (const Kind *const kind : call.kinds) {
    for (const Order order : call.orders) {
      for (const Mix mix : call.mixes) rows.push_back({kind, order, mix});
    }
  }
  return rows;
}

// Shows every row that has all the words, and prints the worst of them; its ratio, or 0 when there is none.
double measure_call(const Call &call, const std::vector<std::string> &words) {
  double worst = 0;
  std::string line;
  for (const Row &row : rows_of(call)) {
    const std::string where =
        std::string(row.kind->name) + ", " + kOrderNames[row.order] + ", " + kMixNames[row.mix];
    const std::string name = std::string(call.name) + ": " + where;
    const auto has = [&](const std::string &word) { return name.find(word) != std::string::npos; };
    if (!std::ranges::all_of(words, has)) continue;
    const double few = measure(row, call, kFew);
    const double many = measure(row, call, kMany);
    char figures[80];
    std::snprintf(figures, sizeof figures, "%.0f | %.0f | %.2f", few, many, many / few);
    std::fprintf(stderr, "%s | %s\n", name.c_str(), figures);
    if (many / few < worst) continue;
    worst = many / few;
    line = std::string("| ") + call.name + " | " + figures + " | " + where + " |\n";
  }
  std::fputs(line.c_str(), stdout);
  return worst;
}

}  // namespace

int main(int count, char **arguments) {
  if (const std::optional<int> status = bench::run_under_callgrind(arguments)) return *status;
  const std::vector<std::string> words(arguments + 1, arguments + count);
  std::fputs(
      "| instructions of a call | 1,000 siblings | 100,000 | ratio | worst in |\n"
      "| --- | ---: | ---: | ---: | --- |\n",
      stdout);
  double worst = 0;
  for (const Call &call : kCalls) worst = std::max(worst, measure_call(call, words));
  return worst <= kHighestRatio ? EXIT_SUCCESS : EXIT_FAILURE;
}
