// One iteration makes one template: fills it call by call, finds every sibling, first in their order and then
// in another, walks, overrides, and empties it by a quarter from the front, by a quarter from the back, and
// of what is left by a half out of its middle. A row whose numbers grow with the count shows a call that
// takes longer the more siblings there are.
#include "api_cost.h"

#include <benchmark/benchmark.h>

#include <vector>

#include "jt.h"
#include "library.h"
#include "stopwatch.h"

namespace bench {
namespace {

// Coprime to every count, so that steps of this width meet each sibling once, in no helpful order.
constexpr std::size_t kStride = 7919;

struct Job {
  jt_parser_space *space;
  int32_t handle;
};

using Call = int32_t (*)(const Job &job, const char *name);
using Text = char *(*)(const Job &job);

// One kind of siblings; the name of a value is its text. A call that does not exist is null.
struct Siblings {
  const char *name;
  const char *type;  // of the attribute that holds the values, if any
  Call add;
  Call fill;
  Call find;
  Text first;
  Text next;
  Call replace;
  Call remove;
};

constexpr char kScan[] = "Scan";
constexpr char kValues[] = "values";

int32_t add_attribute(const Job &job, const char *name) {
  return jt_add_attribute(job.space, job.handle, kScan, "string", name);
}
int32_t fill_attribute(const Job &job, const char *name) {
  return jt_add_attribute_value_string(job.space, job.handle, kScan, name, "before") != 0 &&
         jt_set_attribute_non_compulsory(job.space, job.handle, kScan, name) != 0;
}
int32_t find_attribute(const Job &job, const char *name) {
  return jt_exists_attribute(job.space, job.handle, kScan, name);
}
int32_t remove_attribute(const Job &job, const char *name) {
  return jt_delete_attribute(job.space, job.handle, kScan, name);
}
char *first_attribute(const Job &job) { return jt_get_first_attribute_name(job.space, job.handle, kScan); }
char *next_attribute(const Job &job) { return jt_get_next_attribute_name(job.space, job.handle, kScan); }

// A value of type string is its text.
const jt_value *string_value(const char *text) { return reinterpret_cast<const jt_value *>(text); }

int32_t replace_attribute(const Job &job, const char *name) {
  return jt_override_attribute_value(job.space, job.handle, kScan, name, string_value("before"),
                                     string_value("afterwards"));
}

int32_t add_value(const Job &job, const char *text) {
  return jt_add_attribute_value_string(job.space, job.handle, kScan, kValues, text);
}

// By an equal value, so that the text still finds it.
int32_t replace_value(const Job &job, const char *text) {
  return jt_override_attribute_value(job.space, job.handle, kScan, kValues, string_value(text),
                                     string_value(text));
}
int32_t remove_value(const Job &job, const char *text) {
  return jt_delete_attribute_value_string(job.space, job.handle, kScan, kValues, text);
}
char *first_value(const Job &job) {
  return jt_get_first_attribute_value_string(job.space, job.handle, kScan, kValues);
}
char *next_value(const Job &job) {
  return jt_get_next_attribute_value_string(job.space, job.handle, kScan, kValues);
}

int32_t add_service(const Job &job, const char *name) {
  return jt_add_service(job.space, job.handle, "kmt_svc_scan", name);
}
int32_t find_service(const Job &job, const char *name) {
  return jt_exists_service(job.space, job.handle, name);
}
int32_t remove_service(const Job &job, const char *name) {
  return jt_delete_service(job.space, job.handle, name);
}
char *first_service(const Job &job) { return jt_get_first_service_name(job.space, job.handle); }
char *next_service(const Job &job) { return jt_get_next_service_name(job.space, job.handle); }

constexpr Siblings kKinds[] = {
    {"attributes", nullptr, add_attribute, fill_attribute, find_attribute, first_attribute, next_attribute,
     replace_attribute, remove_attribute},
    {"strings", "string", add_value, nullptr, nullptr, first_value, next_value, replace_value, remove_value},
    {"unknown values", "future", add_value, nullptr, nullptr, first_value, next_value, nullptr, remove_value},
    {"services", nullptr, add_service, nullptr, find_service, first_service, next_service, nullptr,
     remove_service},
};

constexpr const char *kKindNames[] = {"attributes", "strings", "unknown values", "services"};
static_assert(std::size(kKindNames) == std::size(kKinds));

enum Step { kAdd, kFill, kFind, kScattered, kWalk, kOverride, kFront, kBack, kMiddle, kSteps };

constexpr const char *kCallNames[] = {"add",      "add value",    "find",        kScatteredFind, "walk",
                                      "override", "delete front", "delete back", "delete middle"};
static_assert(std::size(kCallNames) == kSteps);

// Nanoseconds per call, one number for each template.
using Costs = std::array<std::vector<double>, kSteps>;

// A template with an invocation of a service, and in it the attribute that is to hold values.
Job make_job(const Siblings &kind) {
  Job job = {jt_open_parsing_utility("jt_bench"), 0};
  require(job.space != nullptr, "opening a session");
  job.handle = jt_create_template(job.space);
  require(add_service(job, kScan) == 1, "adding a service");
  require(jt_add_invocation(job.space, job.handle, kScan) == 1, "adding an invocation");
  if (kind.type != nullptr) {
    require(jt_add_attribute(job.space, job.handle, kScan, kind.type, kValues) == 1, "adding an attribute");
    jt_set_attribute_non_compulsory(job.space, job.handle, kScan, kValues);
  }
  return job;
}

std::size_t walk(const Siblings &kind, const Job &job) {
  std::size_t met = 0;
  for (char *name = kind.first(job); name != nullptr; name = kind.next(job), ++met) {
    jt_destroy_name(job.space, name);
  }
  return met;
}

// Which of the names a call is made for: from the first in steps, around the end.
struct Course {
  std::size_t first;
  std::size_t step;
  std::size_t count;
};

class Life {
 public:
  Life(const Siblings &kind, const std::vector<std::string> &names, Costs &costs)
      : job_(make_job(kind)), names_(names), costs_(costs) {
    run(kind);
    jt_close_parsing_utility(job_.space);
  }

  double nanoseconds() const { return nanoseconds_; }

 private:
  void run(const Siblings &kind) {
    const std::size_t count = names_.size();
    const std::size_t quarter = count / 4;
    const Course forward = {0, 1, count};
    const Course scattered = {0, kStride % count, count};
    make_calls(kAdd, kind.add, forward);
    make_calls(kFill, kind.fill, forward);
    make_calls(kFind, kind.find, forward);
    make_calls(kScattered, kind.find, scattered);
    note(kWalk, count, [&] { require(walk(kind, job_) >= count, "walking"); });
    make_calls(kOverride, kind.replace, forward);
    make_calls(kFront, kind.remove, {0, 1, quarter});
    make_calls(kBack, kind.remove, {count - 1, count - 1, quarter});
    make_calls(kMiddle, kind.remove, {quarter + quarter / 2, 1, quarter});
  }

  void make_calls(Step step, Call call, Course course) {
    if (call == nullptr) return;
    note(step, course.count, [&] {
      std::size_t at = course.first;
      for (std::size_t i = 0; i < course.count; ++i, at = (at + course.step) % names_.size()) {
        require(call(job_, names_[at].c_str()) == 1, kCallNames[step]);
      }
    });
  }

  template <typename Work>
  void note(Step step, std::size_t calls, Work work) {
    const double taken = time_of(work);
    nanoseconds_ += taken;
    costs_[step].push_back(taken / static_cast<double>(calls));
  }

  Job job_;
  const std::vector<std::string> &names_;
  Costs &costs_;
  double nanoseconds_ = 0;
};

std::vector<std::string> numbered_names(std::size_t count) {
  std::vector<std::string> names;
  names.reserve(count);
  for (std::size_t i = 0; i < count; ++i) names.push_back("name-" + std::to_string(i));
  return names;
}

void run(benchmark::State &state, const Siblings &kind, std::size_t count) {
  const std::vector<std::string> names = numbered_names(count);
  Costs costs;
  for (auto iteration : state) state.SetIterationTime(Life(kind, names, costs).nanoseconds() / 1e9);
  for (std::size_t step = 0; step < kSteps; ++step) {
    if (!costs[step].empty()) state.counters[kCallNames[step]] = median(costs[step]);
  }
}

}  // namespace

std::span<const char *const> call_names() { return kCallNames; }

std::span<const char *const> sibling_kinds() { return kKindNames; }

std::string api_benchmark_name(const std::string &kind, std::size_t count) {
  return "api/" + kind + "/" + std::to_string(count);
}

void register_api_costs() {
  for (const Siblings &kind : kKinds) {
    for (const std::size_t count : kSiblingCounts) {
      benchmark::RegisterBenchmark(api_benchmark_name(kind.name, count).c_str(),
                                   [&kind, count](benchmark::State &state) { run(state, kind, count); })
          ->UseManualTime();
    }
  }
}

}  // namespace bench
