// jt_call_cost: what a call costs among many siblings, in instructions, beside what it costs among few.
// Values are added, inserted, overridden and deleted in several orders, with none, two, half or all of them
// equal; services, invocations and attributes are added, found, walked and deleted.
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
#include <string_view>
#include <vector>

#include "callgrind.h"
#include "jt.h"

namespace {

constexpr std::size_t kFew = 1000;
constexpr std::size_t kMany = 100000;
constexpr double kHighestRatio = 1.2;

// A row that takes longer stops there: the calls made by then are its figure.
constexpr std::chrono::milliseconds kPatience(1500);

void require(bool holds, const std::string &what) {
  if (holds) return;
  std::fprintf(stderr, "jt_call_cost: failed: %s\n", what.c_str());
  std::exit(2);
}

enum Order { kFront, kBack, kScattered, kAlternating };
constexpr const char *kOrderNames[] = {"front", "back", "scattered", "alternating"};

enum Mix { kNone, kOne, kHalf, kAll };
constexpr const char *kMixNames[] = {"none equal", "two equal", "half equal", "all equal"};

// Which sibling the call of that number is for.
std::size_t place(Order order, std::size_t number, std::size_t count) {
  constexpr std::size_t kStride = 7919;  // has no factor in common with the counts
  switch (order) {
    case kFront:
      return number;
    case kBack:
      return count - 1 - number;
    case kScattered:
      return number * kStride % count;
    default:
      return number % 2 == 0 ? number / 2 : count - 1 - number / 2;
  }
}

// Siblings that are made alike. The texts of all have the same length, so that it costs the same to read
// them.
struct Kind {
  const char *name;
  const char *type;  // of the attribute that holds them, when they are values
  const char *prefix;
  const char *suffix;
};

constexpr std::string_view kUnknownType = "unknown type";

constexpr Kind kValueKinds[] = {{"integer", "integer", "", ""},
                                {"string", "string", "value-", ""},
                                {"real", "real", "", ".5"},
                                {kUnknownType.data(), "future", "word-", ""}};
constexpr Kind kServices = {"service", nullptr, "name-", ""};
constexpr Kind kInvocations = {"invocation", nullptr, "name-", ""};
constexpr Kind kAttributes = {"attribute", nullptr, "name-", ""};

constexpr char kScan[] = "Scan";
constexpr char kValues[] = "values";

// One measurement: a template with one service, one invocation and, for values, one attribute.
class Run {
 public:
  Run(const Kind &kind, Order order, Mix mix, std::size_t count);
  ~Run() { jt_close_parsing_utility(space); }
  Run(const Run &) = delete;
  Run &operator=(const Run &) = delete;

  std::string text(std::size_t number) const {
    return kind.prefix + std::to_string(1000000 + number) + kind.suffix;
  }
  std::string mixed_text(std::size_t number, std::size_t offset = 0) const;

  // Makes a call that is counted; false when the row has taken too long.
  template <typename Call>
  bool counted(Call call);

  // Makes the calls 0 to `most` - 1, each with its number; `call` returns what counted() does.
  template <typename Call>
  void repeat(std::size_t most, Call call) {
    for (std::size_t number = 0; number < most && call(number); ++number) continue;
  }

  double instructions_per_call();

  const Kind &kind;
  const Order order;
  const Mix mix;
  const std::size_t count;
  jt_parser_space *const space;
  int32_t job = 0;
  jt_node *attribute = nullptr;
  const jt_type *type = nullptr;

 private:
  std::optional<bench::InstructionCounter> counter_;
  std::chrono::steady_clock::time_point end_;
  std::size_t calls_ = 0;
};

Run::Run(const Kind &the_kind, Order the_order, Mix the_mix, std::size_t the_count)
    : kind(the_kind),
      order(the_order),
      mix(the_mix),
      count(the_count),
      space(jt_open_parsing_utility("jt_call_cost")) {
  job = jt_create_template(space);
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

// Two equal: the last is like the first. Half: every second is like the second. All: like the first.
std::string Run::mixed_text(std::size_t number, std::size_t offset) const {
  const std::size_t like[] = {number, number == count - 1 ? 0 : number, number % 2 == 0 ? number : 1, 0};
  return text(offset + like[mix]);
}

template <typename Call>
bool Run::counted(Call call) {
  if (!counter_) {
    counter_.emplace();
    end_ = std::chrono::steady_clock::now() + kPatience;
  }
  require((*counter_)(call), kind.name);
  return ++calls_ % 16 != 0 || std::chrono::steady_clock::now() < end_;
}

double Run::instructions_per_call() {
  return static_cast<double>(counter_->take()) / static_cast<double>(calls_);
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

bool override_value(Run &run, const std::string &from, const std::string &to) {
  jt_value *const old_value = jt_decode_value(run.space, run.kind.type, from.c_str(), kScan);
  jt_value *const new_value = jt_decode_value(run.space, run.kind.type, to.c_str(), kScan);
  const bool goes_on = run.counted([&] {
    return jt_override_attribute_value(run.space, run.job, kScan, kValues, old_value, new_value) == 1;
  });
  jt_destroy_value(run.space, run.kind.type, old_value, kScan);
  jt_destroy_value(run.space, run.kind.type, new_value, kScan);
  return goes_on;
}

// Values that differ become a mix.
void override_to(Run &run) {
  fill(run, run.count, false);
  run.repeat(run.count / 2, [&](std::size_t i) {
    const std::size_t at = place(run.order, i, run.count);
    return override_value(run, run.text(at), run.mixed_text(at, run.count));
  });
}

// A mix becomes values that differ.
void override_from(Run &run) {
  fill(run, run.count, true);
  run.repeat(run.count / 2, [&](std::size_t i) {
    const std::size_t at = place(run.order, i, run.count);
    return override_value(run, run.mixed_text(at), run.text(run.count + at));
  });
}

void walk_values(Run &run) {
  fill(run, run.count, true);
  run.repeat(run.count, [&](std::size_t i) {
    const auto next = i == 0 ? jt_get_first_attribute_value_string : jt_get_next_attribute_value_string;
    return run.counted([&] {
      char *const text = next(run.space, run.job, kScan, kValues);
      jt_destroy_value_string(run.space, text);
      return text != nullptr;
    });
  });
}

// ---- Services, invocations and attributes: their names differ ----

bool add_named(const Run &run, const std::string &name) {
  if (&run.kind == &kServices) return jt_add_service(run.space, run.job, "kmt_svc_scan", name.c_str()) == 1;
  if (&run.kind == &kAttributes) {
    return jt_add_attribute(run.space, run.job, kScan, "string", name.c_str()) == 1;
  }
  return jt_add_invocation(run.space, run.job, kScan) == 1 &&
         jt_set_invocation_name(run.space, run.job, kScan, name.c_str()) == 1;
}

bool find_named(const Run &run, const std::string &name) {
  if (&run.kind == &kServices) return jt_exists_service(run.space, run.job, name.c_str()) == 1;
  if (&run.kind == &kAttributes) return jt_exists_attribute(run.space, run.job, kScan, name.c_str()) == 1;
  return jt_named_invocation(run.space, run.job, kScan, name.c_str()) == 1;
}

bool remove_named(const Run &run, const std::string &name) {
  if (&run.kind == &kServices) return jt_delete_service(run.space, run.job, name.c_str()) == 1;
  if (&run.kind == &kAttributes) return jt_delete_attribute(run.space, run.job, kScan, name.c_str()) == 1;
  return find_named(run, name) && jt_delete_invocation(run.space, run.job, kScan) == 1;
}

void add_all_named(Run &run) {
  run.repeat(run.count, [&](std::size_t i) {
    const std::string name = run.text(i);
    return run.counted([&] { return add_named(run, name); });
  });
}

// Half of the siblings, each by its name.
void repeat_named(Run &run, bool (*call)(const Run &run, const std::string &name)) {
  for (std::size_t i = 0; i < run.count; ++i) require(add_named(run, run.text(i)), "filling");
  run.repeat(run.count / 2, [&](std::size_t i) {
    const std::string name = run.text(place(run.order, i, run.count));
    return run.counted([&] { return call(run, name); });
  });
}

void find_by_name(Run &run) { repeat_named(run, find_named); }

void remove_by_name(Run &run) { repeat_named(run, remove_named); }

// ---- The rows ----

struct Call {
  const char *name;
  void (*run)(Run &run);
  std::vector<Order> orders;
  std::vector<Mix> mixes;
  bool of_unknown_type = true;
};

const std::vector<Order> kOneOrder = {kFront};
const std::vector<Order> kAllOrders = {kFront, kBack, kScattered, kAlternating};
const std::vector<Mix> kAllMixes = {kNone, kOne, kHalf, kAll};

const std::vector<Call> kCallsOnValues = {
    {"add", add, kOneOrder, kAllMixes},
    {"insert at the cursor", insert, kAllOrders, kAllMixes},
    {"walk", walk_values, kOneOrder, {kNone}},
    {"override, equal afterwards", override_to, kAllOrders, kAllMixes, false},
    {"override, equal before", override_from, kAllOrders, kAllMixes, false},
    {"insert and delete", insert_and_remove, {kFront, kBack, kScattered}, kAllMixes},
    {"delete", remove, kAllOrders, kAllMixes},
    {"delete at the cursor", remove_at_cursor, {kFront, kBack, kScattered}, kAllMixes},
};

const std::vector<Call> kCallsOnNames = {
    {"add", add_all_named, kOneOrder, {kNone}},
    {"find", find_by_name, kAllOrders, {kNone}},
    {"delete", remove_by_name, kAllOrders, {kNone}},
};

// What is shown of a call: the order and mix in which the ratio is worst.
struct Figure {
  std::string circumstances;
  double few = 0;
  double many = 0;
  double ratio() const { return many / few; }
};

double measure(const Kind &kind, const Call &call, Order order, Mix mix, std::size_t count) {
  Run run(kind, order, mix, count);
  call.run(run);
  return run.instructions_per_call();
}

bool is_wanted(const std::string &name, const std::vector<std::string> &words) {
  return std::ranges::all_of(words,
                             [&](const std::string &word) { return name.find(word) != std::string::npos; });
}

// The worst figure of a call, if any of its rows is wanted.
std::optional<Figure> worst_of(const Kind &kind, const Call &call, const std::vector<std::string> &words) {
  std::optional<Figure> worst;
  for (const Order order : call.orders) {
    for (const Mix mix : call.mixes) {
      const std::string circumstances = std::string(kOrderNames[order]) + ", " + kMixNames[mix];
      const std::string name = std::string(kind.name) + ": " + call.name + ", " + circumstances;
      if (!is_wanted(name, words)) continue;
      std::fprintf(stderr, "%-70s", name.c_str());
      const Figure figure = {circumstances, measure(kind, call, order, mix, kFew),
                             measure(kind, call, order, mix, kMany)};
      std::fprintf(stderr, " %8.0f %8.0f %8.2f\n", figure.few, figure.many, figure.ratio());
      if (!worst || worst->ratio() < figure.ratio()) worst = figure;
    }
  }
  return worst;
}

// Appends the lines of a kind's calls to the table; whether every ratio is as it must be.
bool measure_kind(const Kind &kind, const std::vector<Call> &calls, const std::vector<std::string> &words,
                  std::string &table) {
  bool good = true;
  for (const Call &call : calls) {
    if (kind.name == kUnknownType && !call.of_unknown_type) continue;
    const std::optional<Figure> worst = worst_of(kind, call, words);
    if (!worst) continue;
    char figures[80];
    std::snprintf(figures, sizeof figures, " | %.0f | %.0f | %.2f | ", worst->few, worst->many,
                  worst->ratio());
    table += std::string("| ") + kind.name + ": " + call.name + figures + worst->circumstances + " |\n";
    good = good && worst->ratio() <= kHighestRatio;
  }
  return good;
}

}  // namespace

int main(int count, char **arguments) {
  if (const std::optional<int> status = bench::run_under_callgrind(arguments)) return *status;
  const std::vector<std::string> words(arguments + 1, arguments + count);
  std::string table =
      "| instructions of a call | at 1,000 | at 100,000 | ratio | worst in |\n"
      "| ---------------------- | -------: | ---------: | ----: | -------- |\n";
  bool good = true;
  for (const Kind &kind : kValueKinds) good = measure_kind(kind, kCallsOnValues, words, table) && good;
  for (const Kind *const kind : {&kServices, &kInvocations, &kAttributes}) {
    good = measure_kind(*kind, kCallsOnNames, words, table) && good;
  }
  std::fputs(table.c_str(), stdout);
  return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
