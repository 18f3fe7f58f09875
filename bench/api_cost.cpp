// What a call costs among many siblings: nanoseconds per call for 1,000, 10,000 and 100,000 attributes of one
// invocation, values of one attribute, and services of one template. A column whose numbers grow with the
// count shows a call that takes longer the more siblings there are. No call finds a value without changing
// it, so that cell stays empty.
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "jt.h"

namespace {

constexpr std::array<std::size_t, 3> kCounts = {1000, 10000, 100000};

// Smaller counts are repeated until about this many siblings have been made.
constexpr std::size_t kSiblings = 200000;

// Coprime to every count, so that steps of this width meet each sibling once, in no helpful order.
constexpr std::size_t kStride = 7919;

struct Job {
  jt_parser_space *space;
  int32_t handle;
};

// A kind of siblings; the name of a value is its text. Without a look-up the function is null.
struct Kind {
  const char *name;
  const char *type;  // of the attribute that holds the values, if any
  int32_t (*add)(const Job &job, const char *name);
  int32_t (*find)(const Job &job, const char *name);
  int32_t (*remove)(const Job &job, const char *name);
  char *(*first)(const Job &job);
  char *(*next)(const Job &job);
};

constexpr char kScan[] = "Scan";
constexpr char kValues[] = "values";

int32_t add_attribute(const Job &job, const char *name) {
  return jt_add_attribute(job.space, job.handle, kScan, "integer", name);
}
int32_t find_attribute(const Job &job, const char *name) {
  return jt_exists_attribute(job.space, job.handle, kScan, name);
}
int32_t remove_attribute(const Job &job, const char *name) {
  return jt_delete_attribute(job.space, job.handle, kScan, name);
}
char *first_attribute(const Job &job) { return jt_get_first_attribute_name(job.space, job.handle, kScan); }
char *next_attribute(const Job &job) { return jt_get_next_attribute_name(job.space, job.handle, kScan); }

int32_t add_value(const Job &job, const char *text) {
  return jt_add_attribute_value_string(job.space, job.handle, kScan, kValues, text);
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

constexpr Kind kKinds[] = {
    {"attributes", nullptr, add_attribute, find_attribute, remove_attribute, first_attribute, next_attribute},
    {"strings", "string", add_value, nullptr, remove_value, first_value, next_value},
    {"unknown", "future", add_value, nullptr, remove_value, first_value, next_value},
    {"services", nullptr, add_service, find_service, remove_service, first_service, next_service},
};

// What was measured, in the order in which it is printed.
enum Step { kAdding, kFinding, kWalking, kFromFront, kFromBack, kFromMiddle, kSteps };

constexpr const char *kTitles[] = {"adding", "finding", "walking", "front", "back", "middle"};
static_assert(sizeof(kTitles) / sizeof(kTitles[0]) == kSteps);

struct Cost {
  double nanoseconds = 0;
  std::size_t calls = 0;
};
using Costs = std::array<Cost, kSteps>;

void require(bool done, const char *what) {
  if (done) return;
  std::fprintf(stderr, "jt_api_cost: %s failed\n", what);
  std::exit(EXIT_FAILURE);
}

// Adds the time that the work takes, and the number of calls that it reports.
template <typename Work>
void measure(Cost &cost, Work work) {
  const auto before = std::chrono::steady_clock::now();
  cost.calls += work();
  const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - before;
  cost.nanoseconds += taken.count();
}

// A template with an invocation of a service, and in it the attribute that is to hold values.
Job make_job(const Kind &kind) {
  Job job = {jt_open_parsing_utility("jt_api_cost"), 0};
  require(job.space != nullptr, "opening");
  job.handle = jt_create_template(job.space);
  require(add_service(job, kScan) == 1, "adding a service");
  require(jt_add_invocation(job.space, job.handle, kScan) == 1, "adding an invocation");
  if (kind.type != nullptr) {
    require(jt_add_attribute(job.space, job.handle, kScan, kind.type, kValues) == 1, "adding an attribute");
  }
  return job;
}

std::size_t walk(const Kind &kind, const Job &job) {
  std::size_t met = 0;
  for (char *name = kind.first(job); name != nullptr; name = kind.next(job), ++met) {
    jt_destroy_name(job.space, name);
  }
  return met;
}

// Calls for names[first], names[first + step] and so on; the names wrap around.
template <typename Call>
std::size_t for_names(const std::vector<std::string> &names, std::size_t first, std::size_t step,
                      std::size_t count, Call call) {
  for (std::size_t i = 0; i < count; ++i, first = (first + step) % names.size()) {
    require(call(names[first].c_str()) == 1, names[first].c_str());
  }
  return count;
}

// One template: filled, searched, walked, and emptied by a quarter from the front, by a quarter from the
// back, and of what is left by a half out of its middle.
void run(const Kind &kind, const std::vector<std::string> &names, Costs &costs) {
  const Job job = make_job(kind);
  const std::size_t count = names.size();
  const std::size_t quarter = count / 4;
  const auto add = [&](const char *name) { return kind.add(job, name); };
  const auto remove = [&](const char *name) { return kind.remove(job, name); };
  measure(costs[kAdding], [&] { return for_names(names, 0, 1, count, add); });
  if (kind.find != nullptr) {
    const auto find = [&](const char *name) { return kind.find(job, name); };
    measure(costs[kFinding], [&] { return for_names(names, 0, kStride, count, find); });
  }
  measure(costs[kWalking], [&] { return walk(kind, job); });
  measure(costs[kFromFront], [&] { return for_names(names, 0, 1, quarter, remove); });
  measure(costs[kFromBack], [&] { return for_names(names, count - 1, count - 1, quarter, remove); });
  measure(costs[kFromMiddle], [&] { return for_names(names, quarter + quarter / 2, 1, quarter, remove); });
  jt_close_parsing_utility(job.space);
}

std::vector<std::string> numbered_names(std::size_t count) {
  std::vector<std::string> names;
  names.reserve(count);
  for (std::size_t i = 0; i < count; ++i) names.push_back("name-" + std::to_string(i));
  return names;
}

void print_titles() {
  std::printf("nanoseconds per call\n%-12s%9s", "siblings", "count");
  for (const char *const title : kTitles) std::printf("%9s", title);
  std::printf("\n");
}

void print(const Kind &kind, std::size_t count, const Costs &costs) {
  std::printf("%-12s%9zu", kind.name, count);
  for (const Cost &cost : costs) {
    if (cost.calls == 0) {
      std::printf("%9s", "-");
    } else {
      std::printf("%9.0f", cost.nanoseconds / static_cast<double>(cost.calls));
    }
  }
  std::printf("\n");
}

}  // namespace

int main() {
  print_titles();
  for (const Kind &kind : kKinds) {
    for (const std::size_t count : kCounts) {
      const std::vector<std::string> names = numbered_names(count);
      Costs costs;
      for (std::size_t made = 0; made < kSiblings; made += count) run(kind, names, costs);
      print(kind, count, costs);
    }
  }
  return EXIT_SUCCESS;
}
