// Opening a session without memory. There is nobody to report to.
#include <gtest/gtest.h>

#include "faults/scenario.h"

namespace jt_test {
namespace {

class Opening : public ::testing::TestWithParam<Failing> {};

TEST_P(Opening, GivesNoSessionAndLeavesNothing) {
  const long blocks = live_blocks();
  int number = 1;
  for (;; ++number) {
    fail_allocations(number, GetParam());
    jt_parser_space *const space = jt_open_parsing_utility("label");
    if (allow_allocations() == 0) {
      ASSERT_NE(space, nullptr);
      jt_close_parsing_utility(space);
      break;
    }
    EXPECT_EQ(space, nullptr) << "allocation " << number;
    EXPECT_EQ(live_blocks(), blocks) << "allocation " << number;
  }
  EXPECT_EQ(number - 1, 3);  // the session, its label, its node table
  EXPECT_EQ(live_blocks(), blocks);
}

std::string failing_name(const ::testing::TestParamInfo<Failing> &info) {
  return info.param == Failing::kOnlyOne ? "OnlyOne" : "AllFromThereOn";
}

INSTANTIATE_TEST_SUITE_P(Faults, Opening, ::testing::Values(Failing::kOnlyOne, Failing::kAllFromThereOn),
                         failing_name);

TEST(OpeningInside, FailsTheSameWay) {
  fail_allocations(1, Failing::kOnlyOne);
  EXPECT_EQ(create_parser_space("label"), nullptr);
  EXPECT_EQ(allow_allocations(), 1);
}

TEST(Closing, NeedsNoMemory) {
  const long blocks = live_blocks();
  jt_parser_space *const space = jt_open_parsing_utility("label");
  jt_decode_template(space, kJob);
  fail_allocations(1, Failing::kAllFromThereOn);
  EXPECT_EQ(jt_close_parsing_utility(space), 1);
  EXPECT_EQ(allow_allocations(), 0);
  EXPECT_EQ(live_blocks(), blocks);
}

TEST(ClosingInside, NeedsNoMemory) {
  const long blocks = live_blocks();
  jt_parser_space *const space = create_parser_space("label");
  fail_allocations(1, Failing::kAllFromThereOn);
  EXPECT_EQ(delete_parser_space(space), 1);
  EXPECT_EQ(allow_allocations(), 0);
  EXPECT_EQ(live_blocks(), blocks);
}

}  // namespace
}  // namespace jt_test
