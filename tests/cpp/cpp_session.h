// A session with one template, seen through jt.hpp, and what most tests of that header ask: what a failed
// call said, word for word, what a walk gives, and how many blocks of the heap a call takes.
#ifndef JT_TESTS_CPP_CPP_SESSION_H
#define JT_TESTS_CPP_CPP_SESSION_H

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "jt.hpp"
#include "support/failing_allocator.h"

namespace jt_test {

using Words = std::vector<std::string>;

// Everything that a walk gives, as texts.
template <typename Range>
Words words_of(Range &&range) {
  Words words;
  for (const auto &element : range) {
    if constexpr (requires { element.c_str(); }) {
      words.emplace_back(element.c_str());
    } else {
      words.emplace_back(element);
    }
  }
  return words;
}

// How many steps a walk takes to its end.
template <typename Range>
std::size_t steps_of(Range &&range) {
  std::size_t count = 0;
  for (auto at = range.begin(); at != range.end(); ++at) ++count;
  return count;
}

inline ::testing::AssertionResult says(const jt::Error &error, jt::Category category, const Words &messages) {
  if (error.category() == category && words_of(error.messages()) == messages)
    return ::testing::AssertionSuccess();
  ::testing::AssertionResult failure = ::testing::AssertionFailure();
  failure << "category " << static_cast<int>(error.category());
  for (const std::string_view message : error.messages()) failure << "\n  " << message;
  return failure;
}

// Whether a call failed, with this category and just these messages, newest first.
template <typename Result>
::testing::AssertionResult failed(const Result &result, jt::Category category, const Words &messages) {
  if (result.has_value()) return ::testing::AssertionFailure() << "the call succeeded";
  return says(result.error(), category, messages);
}

template <typename Result>
::testing::AssertionResult failed_silently(const Result &result) {
  return failed(result, jt::Category::none, {});
}

template <typename Result>
::testing::AssertionResult has_no_session(const Result &result) {
  return failed(result, jt::Category::call_error, {"CALL ERROR: no session ..."});
}

// How many blocks an action asks the heap for.
template <typename Action>
int blocks_taken(Action action) {
  int taken = 0;
  for (bool enough = false; !enough; taken += enough ? 0 : 1) {
    fail_allocations(taken + 1, Failing::kOnlyOne);
    action();
    enough = allow_allocations() == 0;
  }
  return taken;
}

constexpr const char *kJob =
    "< SIL 4.2.00 ASCII job >\n"
    "[ kmt_svc_scan Scanner ]\n"
    "first { integer Copies = 3; boolean Fast = TRUE; real Weight = 0.5; enum_sided Sides = TWO_SIDED;\n"
    "  * string Note = one, two, three; }\n"
    "{ integer Copies = 4; } (KMT_STATUS_COMPLETED)\n"
    "end (KMT_STATUS_ERROR)\n"
    "[ kmt_svc_email Mail ] { string To = \"office@example.org\"; string Nothing; } end\n"
    "< /SIL >\n";

class CppTest : public ::testing::Test {
 protected:
  CppTest() : session("test"), job(decoded(kJob)), scanner(job.service("Scanner")) {}

  jt::Template decoded(const char *text) { return session.decode(text).value_or(jt::Template()); }
  std::string encoded() { return job.encode().value_or(jt::Text()).str(); }

  jt::Session session;
  jt::Template job;
  jt::Service scanner;
};

}  // namespace jt_test

#endif
