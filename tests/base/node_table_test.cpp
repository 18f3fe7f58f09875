// The node table: which slot a node gets, how the table grows, what releasing a slot answers. The table knows
// nothing of nodes but their addresses, so most cases fill it with addresses that are no nodes.
#include "base/node_table.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "base/markers.h"
#include "base/parser_space.h"
#include "support/session.h"

namespace {

using jt_test::Messages;

constexpr char kRefused[] = "CALL ERROR: trying to release non existant memory ...";

class NodeTable : public ::testing::Test {
 protected:
  NodeTable() : space(), addresses(200000) { jt_core::open_node_table(space); }
  ~NodeTable() override { jt_core::close_node_table(space); }
  NodeTable(const NodeTable &) = delete;
  NodeTable &operator=(const NodeTable &) = delete;

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

TEST_F(NodeTable, OpensWithRoomForFiveHundredAndTwelve) {
  EXPECT_EQ(space.table.capacity, 512);
  EXPECT_EQ(space.table.count, 0);
}

TEST_F(NodeTable, HandsSlotsOutInOrder) {
  fill(10);
  EXPECT_EQ(space.table.count, 10);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(space.table.slots[i], node(i));
}

TEST_F(NodeTable, DoesNotGrowBeforeItIsFull) {
  fill(512);
  EXPECT_EQ(space.table.capacity, 512);
  EXPECT_EQ(space.table.count, 512);
}

TEST_F(NodeTable, The513thNodeMakesItGrowAndTheFirst512Survive) {
  fill(513);
  EXPECT_EQ(space.table.capacity, 1024);
  EXPECT_EQ(space.table.count, 513);
  for (int i = 0; i < 513; ++i) EXPECT_EQ(space.table.slots[i], node(i));
}

TEST_F(NodeTable, GrowsInStepsOf512) {
  for (int i = 0; i < 6000; ++i) {
    ASSERT_EQ(take(i), i);
    ASSERT_EQ(space.table.capacity, (i / 512 + 1) * 512);
  }
  for (int i = 0; i < 6000; ++i) ASSERT_EQ(space.table.slots[i], node(i));
}

TEST_F(NodeTable, AReleasedSlotHoldsAllOnes) {
  fill(3);
  EXPECT_EQ(release(1), 1);
  EXPECT_EQ(space.table.slots[1], jt_core::released_slot());
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(space.table.slots[1]), UINTPTR_MAX);
}

TEST_F(NodeTable, TheCountIsAHighWaterMark) {
  fill(10);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(release(i), 1);
  EXPECT_EQ(space.table.count, 10);
  EXPECT_EQ(take(0), 0);
  EXPECT_EQ(space.table.count, 10);
}

TEST_F(NodeTable, TheLowestFreeSlotIsTakenFirst) {
  fill(10);
  for (const int bookmark : {7, 3, 5}) release(bookmark);
  EXPECT_EQ(take(20), 3);
  EXPECT_EQ(take(21), 5);
  EXPECT_EQ(take(22), 7);
  EXPECT_EQ(take(23), 10);
  EXPECT_EQ(space.table.slots[5], node(21));
}

TEST_F(NodeTable, AFreeSlotIsTakenBeforeTheTableGrows) {
  fill(512);
  release(511);
  EXPECT_EQ(take(600), 511);
  EXPECT_EQ(space.table.capacity, 512);
  EXPECT_EQ(take(601), 512);
  EXPECT_EQ(space.table.capacity, 1024);
}

TEST_F(NodeTable, FreeSlotsAreRememberedWhenItGrows) {
  fill(1500);
  for (const int bookmark : {1499, 0, 31, 32, 33, 1023, 1024}) release(bookmark);
  for (const int bookmark : {0, 31, 32, 33, 1023, 1024, 1499}) EXPECT_EQ(take(9000), bookmark);
  for (int i = 1500; i < 5000; ++i) ASSERT_EQ(take(i), i);
  for (const int bookmark : {4999, 2048, 4096}) release(bookmark);
  for (const int bookmark : {2048, 4096, 4999}) EXPECT_EQ(take(9000), bookmark);
}

TEST_F(NodeTable, AllSlotsAreVacatedAtOnce) {
  for (const int nodes : {0, 1, 31, 32, 33, 512, 1023, 1024, 1025, 33000}) {
    SCOPED_TRACE(nodes);
    jt_core::close_node_table(space);
    jt_core::open_node_table(space);
    fill(nodes);
    if (nodes > 20) release(20);
    jt_core::vacate_all_slots(space);
    EXPECT_EQ(space.table.count, nodes);
    for (int i = 0; i < nodes; ++i) ASSERT_EQ(space.table.slots[i], jt_core::released_slot());
    fill(nodes + 5);
    EXPECT_EQ(space.table.count, nodes + 5);
  }
}

TEST_F(NodeTable, ReleasingTwiceIsAnsweredWithZeroAndNoReport) {
  fill(3);
  EXPECT_EQ(release(1), 1);
  EXPECT_EQ(release(1), 0);
  EXPECT_EQ(release(1), 0);
  EXPECT_EQ(messages(), Messages());
  EXPECT_EQ(take(5), 1);
  EXPECT_EQ(take(6), 3);
}

TEST_F(NodeTable, ASlotTakenAgainCanBeReleasedAgain) {
  fill(3);
  release(1);
  take(5);
  EXPECT_EQ(release(1), 1);
  EXPECT_EQ(release(1), 0);
}

TEST_F(NodeTable, ReleasingWhatWasNeverHandedOutIsReported) {
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

TEST_F(NodeTable, ReleasingFromAnEmptyTableIsReported) {
  EXPECT_EQ(release(0), 1);
  EXPECT_EQ(messages(), Messages{kRefused});
}

TEST_F(NodeTable, ReleasingWithoutATableIsReported) {
  fill(3);
  jt_core::close_node_table(space);
  EXPECT_EQ(release(0), 1);
  EXPECT_EQ(messages(), Messages{kRefused});
}

TEST_F(NodeTable, ClosingItForgetsEverything) {
  fill(600);
  jt_core::close_node_table(space);
  EXPECT_EQ(space.table.slots, nullptr);
  EXPECT_EQ(space.table.capacity, 0);
  EXPECT_EQ(space.table.count, 0);
}

TEST_F(NodeTable, WithoutASessionNothingIsAssignedAndReleasingAnswersOne) {
  EXPECT_EQ(jt_core::assign_bookmark(nullptr, node(0)), -1);
  EXPECT_EQ(jt_core::release_bookmark(nullptr, 0), 1);
}

TEST_F(NodeTable, KnowsWhichNodeStandsInASlot) {
  fill(3);
  release(2);
  EXPECT_TRUE(jt_core::holds_node(space.table, 1, node(1)));
  EXPECT_FALSE(jt_core::holds_node(space.table, 1, node(0)));
  EXPECT_FALSE(jt_core::holds_node(space.table, 2, node(2)));
  EXPECT_FALSE(jt_core::holds_node(space.table, 3, node(3)));
  EXPECT_FALSE(jt_core::holds_node(space.table, -1, node(0)));
  EXPECT_FALSE(jt_core::holds_node(space.table, std::numeric_limits<int32_t>::max(), node(0)));
}

TEST_F(NodeTable, AHundredThousandNodesComeBackLowestFirst) {
  constexpr int kNodes = 100000;
  fill(kNodes);
  EXPECT_EQ(space.table.capacity, (kNodes + 511) / 512 * 512);
  for (int i = kNodes - 1; i >= 0; --i) ASSERT_EQ(release(i), 1);
  for (int i = 0; i < kNodes; ++i) ASSERT_EQ(take(i), i);
  EXPECT_EQ(take(kNodes), kNodes);
}

// A set of free slots is the plainest table there could be; the real one must give the same answers.
TEST_F(NodeTable, AnswersLikeASetOfFreeSlots) {
  constexpr int kSteps = 400000;
  std::mt19937 random(20240611);
  std::set<int32_t> free;
  std::vector<int32_t> live;
  int32_t count = 0;
  for (int step = 0; step < kSteps; ++step) {
    const bool growing = (step / 50000) % 2 == 0;
    if (live.empty() || random() % 10 < (growing ? 7U : 3U)) {
      const int32_t expected = free.empty() ? count++ : *free.begin();
      free.erase(expected);
      ASSERT_EQ(take(expected), expected);
      live.push_back(expected);
    } else {
      std::swap(live[random() % live.size()], live.back());
      ASSERT_EQ(release(live.back()), 1);
      free.insert(live.back());
      live.pop_back();
    }
  }
  ASSERT_EQ(space.table.count, count);
  for (int32_t slot = 0; slot < count; ++slot)
    ASSERT_EQ(space.table.slots[slot], free.count(slot) != 0 ? jt_core::released_slot() : node(slot));
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
