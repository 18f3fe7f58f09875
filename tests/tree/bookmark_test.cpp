// Bookmarks: what assigning and releasing one answers and reports, and that nodes keep theirs. The calls know
// nothing of nodes but their addresses, so most cases give them addresses that are no nodes.
#include "tree/bookmarks.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "support/session.h"
#include "tree/session.h"

namespace {

using jt_test::Messages;

constexpr char kRefused[] = "CALL ERROR: trying to release non existant memory ...";

class BookmarkCalls : public ::testing::Test {
 protected:
  BookmarkCalls() : space(), addresses(10) {
    jt_core::open_node_table(space.table, space.free_slots, space.heap);
  }
  ~BookmarkCalls() override { close(); }
  BookmarkCalls(const BookmarkCalls &) = delete;
  BookmarkCalls &operator=(const BookmarkCalls &) = delete;

  void close() { jt_core::close_node_table(space.table, space.free_slots); }
  jt_node *node(int number) {
    return reinterpret_cast<jt_node *>(&addresses[static_cast<std::size_t>(number)]);
  }
  int32_t take(int number) { return jt_core::assign_bookmark(&space, node(number)); }
  void fill(int nodes) {
    for (int i = 0; i < nodes; ++i) ASSERT_EQ(take(i), i);
  }
  int32_t release(int32_t bookmark) { return jt_core::release_bookmark(&space, bookmark); }
  Messages messages() { return jt_test::messages_of(&space); }

  jt_parser_space space;
  std::vector<char> addresses;
};

TEST_F(BookmarkCalls, ReleasingTwiceIsAnsweredWithZeroAndNoReport) {
  fill(3);
  EXPECT_EQ(release(1), 1);
  EXPECT_EQ(release(1), 0);
  EXPECT_EQ(release(1), 0);
  EXPECT_EQ(messages(), Messages());
  EXPECT_EQ(take(5), 1);
  EXPECT_EQ(take(6), 3);
}

TEST_F(BookmarkCalls, ASlotTakenAgainCanBeReleasedAgain) {
  fill(3);
  release(1);
  take(5);
  EXPECT_EQ(release(1), 1);
  EXPECT_EQ(release(1), 0);
}

TEST_F(BookmarkCalls, ReleasingWhatWasNeverHandedOutIsReported) {
  fill(3);
  for (const int32_t bookmark : {-1, -100, std::numeric_limits<int32_t>::min(), 3, 511, 512, 100000,
                                 std::numeric_limits<int32_t>::max()}) {
    SCOPED_TRACE(bookmark);
    space.errors = {};
    EXPECT_EQ(release(bookmark), 1);
    EXPECT_EQ(messages(), Messages{kRefused});
    EXPECT_EQ(get_error_status(&space), -4);
  }
  EXPECT_EQ(take(5), 3);
}

TEST_F(BookmarkCalls, ReleasingFromAnEmptyTableIsReported) {
  EXPECT_EQ(release(0), 1);
  EXPECT_EQ(messages(), Messages{kRefused});
}

TEST_F(BookmarkCalls, ReleasingWithoutATableIsReported) {
  fill(3);
  close();
  EXPECT_EQ(release(0), 1);
  EXPECT_EQ(messages(), Messages{kRefused});
}

TEST_F(BookmarkCalls, WithoutASessionNothingIsAssignedAndReleasingAnswersOne) {
  EXPECT_EQ(jt_core::assign_bookmark(nullptr, node(0)), -1);
  EXPECT_EQ(jt_core::release_bookmark(nullptr, 0), 1);
}

// ---- With nodes ----

class Bookmarks : public jt_test::SessionTest {
 protected:
  jt_node *make() { return create_typed_node(space, "template", "template", JT_NODE_TEMPLATE, nullptr); }
};

TEST_F(Bookmarks, TheNodeAfterADestroyedOneTakesItsSlot) {
  std::vector<jt_node *> nodes;
  for (int i = 0; i < 10; ++i) nodes.push_back(make());
  EXPECT_EQ(destroy_node(space, nodes[3]), 1);
  const jt_node *const next = make();
  EXPECT_EQ(opaque_to_node(space, bookmark_to_opaque(3)), next);
  EXPECT_EQ(opaque_to_node(space, bookmark_to_opaque(10)), nullptr);
}

TEST_F(Bookmarks, HandlesSurviveTheGrowthOfTheTable) {
  std::vector<const jt_node *> nodes;
  for (int i = 0; i < 3000; ++i) nodes.push_back(make());
  for (int i = 0; i < 3000; ++i)
    ASSERT_EQ(opaque_to_node(space, -100 - i), nodes[static_cast<std::size_t>(i)]);
  EXPECT_EQ(space->table.capacity, 3072);
}

}  // namespace
