// One call of the library, tried with every one of its allocations failing: only that one, then that one and
// all behind it. After each failure the call must have failed as a whole: its messages, the template, the
// node table and the handle that comes next are looked at, then the same call must work, and nothing may be
// left on the heap when the session is closed.
#ifndef JT_TESTS_FAULTS_SCENARIO_H
#define JT_TESTS_FAULTS_SCENARIO_H

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "faults/world.h"
#include "support/failing_allocator.h"

namespace jt_test {

struct Handle {
  int32_t number;
};

struct TypedValue {
  const jt_type *type;
  jt_value *value;
};

// What a call gave; null and 0 are its failure. All but numbers are released once they have been looked at.
using Result = std::variant<int32_t, char *, void *, jt_status *, jt_node *, Handle, TypedValue>;

struct Scenario {
  std::string name;
  std::function<Result(World &)> call;

  // What is recorded when the first, the second ... allocation fails. Without messages the library goes on as
  // if nothing had happened.
  std::vector<Messages> failures;

  // Runs with memory, before each try.
  std::function<void(World &)> before{};

  // The SIL text that the session has decoded.
  std::string job = kJob;

  // For calls of many allocations, instead of `failures`: each fails with a memory error as its newest
  // message, but for so many that the library can do without.
  std::optional<int> dispensable{};
};

inline std::ostream &operator<<(std::ostream &out, const Scenario &scenario) { return out << scenario.name; }

inline std::string scenario_name(const ::testing::TestParamInfo<Scenario> &info) { return info.param.name; }

inline constexpr char kNoMemory[] = "MEMORY ERROR: allocation error ...";
inline constexpr char kNoSlot[] = "MEMORY ERROR: allocating for book keeping ...";
inline constexpr char kNoBookmark[] = "SYSTEM ERROR: could not assign book mark ...";

// A message as it is recorded: with its detail, as far as there is room for it.
inline std::string cut_message(const std::string &message) { return message.substr(0, 251) + " ..."; }

void expect_whole_failures(const Scenario &scenario);

}  // namespace jt_test

#endif
