// The encoder's text grows by blocks, and any piece of a line may be the one that needs the next: a name, a
// separator, a fold, an indent, a value. Texts of every length up to a line's bring each of them there.
#include <gtest/gtest.h>

#include <string>

#include "faults/scenario.h"
#include "tree/odd_types.h"

namespace jt_test {
namespace {

constexpr std::size_t kLine = 80;

std::string quotes(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += "\\\"";
  return text;
}

// Values that need a backslash for each byte take all the room that was asked for them.
std::string values_of_quotes(std::size_t shift) {
  std::string values = '"' + std::string(shift, 'x') + '"';
  for (int i = 0; i < 60; ++i) values += ", \"" + quotes(14) + '"';
  return values;
}

Scenario encoding(const std::string &job) {
  return {.name = "Encoding",
          .call = [](World &w) -> Result { return jt_encode_template(w.space, w.job); },
          .failures = {},
          .job = job,
          .dispensable = 1};
}

TEST(Growth, FailsAsAWholeWhereverTheRoomEndsAmongStrings) {
  for (std::size_t shift = 0; shift < kLine && !::testing::Test::HasFailure(); ++shift) {
    SCOPED_TRACE(shift);
    expect_whole_failures(encoding("[ kmt_svc_fax A ] { string a = " + values_of_quotes(shift) + "; } end"));
  }
}

TEST(Growth, FailsAsAWholeWhereverTheRoomEndsAmongTextsOfUnknownType) {
  for (std::size_t shift = 0; shift < kLine && !::testing::Test::HasFailure(); ++shift) {
    SCOPED_TRACE(shift);
    Scenario scenario =
        encoding("[ kmt_svc_scan Scan ] { string a = \"" + std::string(shift, 'x') + "\"; } end");
    scenario.before = [](World &w) {
      if (jt_exists_attribute(w.space, w.job, "Scan", "Odd") != 0) return;
      add_odd_attribute(w, "\"");
      for (int i = 0; i < 60; ++i)
        jt_add_attribute_value_string(w.space, w.job, "Scan", "Odd", "\"\"\"\"\"\"\"\"\"\"\"\"\"\"");
    };
    expect_whole_failures(scenario);
  }
}

// A type of a client's, whose values need no release.
TEST(Growth, OfPagesFailsForAValueThatNobodyReleases) {
  expect_whole_failures(
      {.name = "ValueNode",
       .call = [](World &w) -> Result { return create_value_node(w.space, &kOddWithoutKill, "x"); },
       .failures = {{kNoMemory, "MEMORY ERROR: allocating for a value nodex ..."},
                    {kNoMemory, "MEMORY ERROR: allocating for a value nodex ..."}},
       .before = fill_pages});
}

}  // namespace
}  // namespace jt_test
