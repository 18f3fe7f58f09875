// Limits of a decode: what needs no more than they allow is decoded; what needs more fails as without memory, leaves
// nothing, and says which limit it was.
#include "tree/limits.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "tree/tree_session.h"

namespace {

using jt_core::Limit;
using jt_test::Messages;

constexpr std::uint64_t kAnyHeap = std::numeric_limits<std::uint64_t>::max();
constexpr std::int32_t kAnyNodes = std::numeric_limits<std::int32_t>::max();

// Template, service, invocation, two attributes and three values; while it is read, a header that turns out not to
// be there takes the place of one of them.
constexpr const char *kEightNodes = "[ kmt_svc_scan S ] { integer A = 1; integer B = 2, 3; } end";

class Limits : public jt_test::TreeTest {
 protected:
  int32_t decoded(const char *text, std::uint64_t heap, std::int32_t nodes) {
    jt_core::set_limits(*space, {heap, nodes});
    const int32_t handle = jt_decode_template(space, text);
    reached = jt_core::lift_limits(*space);
    return handle;
  }

  // An attribute with so many values.
  static std::string text_of(int values) {
    std::string text = "[ kmt_svc_scan S ] { string A = x";
    for (int i = 1; i < values; ++i) text += ", x";
    return text + "; } end";
  }

  Limit reached = Limit::kNone;
};

TEST_F(Limits, ATextMayNeedAsManyNodesAsTheyAllow) {
  EXPECT_NE(decoded(kEightNodes, kAnyHeap, 8), 0);
  EXPECT_EQ(reached, Limit::kNone);
  EXPECT_EQ(count_alive(), 8U);
}

TEST_F(Limits, ATextThatNeedsOneNodeMoreFailsAndLeavesNothing) {
  EXPECT_EQ(decoded(kEightNodes, kAnyHeap, 7), 0);
  EXPECT_EQ(reached, Limit::kNodes);
  EXPECT_EQ(count_alive(), 0U);
  EXPECT_EQ(messages(),
            (Messages{"MEMORY ERROR: allocation error ...", "MEMORY ERROR: allocating for book keeping ...",
                      "SYSTEM ERROR: could not assign book mark ..."}));
}

TEST_F(Limits, EachNumberOfNodesBelowWhatATextNeedsFails) {
  for (int nodes = 0; nodes < 8; ++nodes) {
    EXPECT_EQ(decoded(kEightNodes, kAnyHeap, nodes), 0) << nodes;
    EXPECT_EQ(reached, Limit::kNodes) << nodes;
    EXPECT_EQ(count_alive(), 0U) << nodes;
  }
}

TEST_F(Limits, NodesOfTheSessionDoNotCount) {
  ASSERT_NE(jt_decode_template(space, kEightNodes), 0);
  EXPECT_NE(decoded(kEightNodes, kAnyHeap, 8), 0);
  EXPECT_EQ(decoded(kEightNodes, kAnyHeap, 7), 0);
  EXPECT_EQ(count_alive(), 16U);
}

TEST_F(Limits, HoldAcrossTheGrowthOfTheTable) {
  const std::string text = text_of(2000);
  EXPECT_EQ(decoded(text.c_str(), kAnyHeap, 2003), 0);
  EXPECT_EQ(reached, Limit::kNodes);
  EXPECT_NE(decoded(text.c_str(), kAnyHeap, 2004), 0);
  EXPECT_EQ(reached, Limit::kNone);
}

TEST_F(Limits, ATextMayTakeAsMuchHeapAsTheyAllow) {
  const std::string text = text_of(2000);
  const std::uint64_t before = space->heap.asked;
  const int32_t handle = jt_decode_template(space, text.c_str());
  ASSERT_NE(handle, 0);
  const std::uint64_t needed = space->heap.asked - before;
  EXPECT_GT(needed, 2000U * sizeof(jt_node));
  const auto in_a_new_session = [&](std::uint64_t heap) {
    reopen();
    return decoded(text.c_str(), heap, kAnyNodes);
  };
  EXPECT_NE(in_a_new_session(needed), 0);
  EXPECT_EQ(reached, Limit::kNone);
  EXPECT_EQ(in_a_new_session(needed - 1), 0);
  EXPECT_EQ(reached, Limit::kHeap);
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
  EXPECT_EQ(count_alive(), 0U);
}

TEST_F(Limits, ALongValueThatTakesTooMuchHeapIsReportedAsWithoutMemory) {
  const std::string value(1000, 'v');
  const std::string text = "[ kmt_svc_scan S ] { string A = " + value + "; } end";
  ASSERT_NE(jt_create_template(space), 0);  // there is a page for the nodes
  EXPECT_EQ(decoded(text.c_str(), 1000, kAnyNodes), 0);
  EXPECT_EQ(reached, Limit::kHeap);
  EXPECT_EQ(messages(),
            (Messages{"MEMORY ERROR: allocation error ...",
                      ("MEMORY ERROR: allocating for a value node" + value).substr(0, 251) + " ..."}));
}

TEST_F(Limits, TheSessionWorksOnAfterwards) {
  EXPECT_EQ(decoded(kEightNodes, kAnyHeap, 3), 0);
  EXPECT_EQ(decoded(text_of(2000).c_str(), 100, kAnyNodes), 0);
  const int32_t handle = jt_decode_template(space, text_of(2000).c_str());
  ASSERT_NE(handle, 0);
  EXPECT_EQ(jt_destroy_template(space, handle), 1);
  EXPECT_EQ(count_alive(), 0U);
}

}  // namespace
