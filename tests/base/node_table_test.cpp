// The node table: which slot a node gets, how the table grows, which slot comes next. The table knows
// nothing of nodes but their addresses, so most cases fill it with addresses that are no nodes.
#include "base/node_table.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>
#include <vector>

#include "base/markers.h"

namespace {

class NodeTable : public ::testing::Test {
 protected:
  NodeTable() : heap(), table(), free_slots(), addresses(200000) { open(); }
  ~NodeTable() override { close(); }
  NodeTable(const NodeTable &) = delete;
  NodeTable &operator=(const NodeTable &) = delete;

  jt_node *node(int number) {
    return reinterpret_cast<jt_node *>(&addresses[static_cast<std::size_t>(number)]);
  }
  bool open() { return jt_core::open_node_table(table, free_slots, heap); }
  void close() { jt_core::close_node_table(table, free_slots); }
  int32_t assign(int number) { return jt_core::assign_slot(table, free_slots, node(number)); }
  void fill(int nodes) {
    for (int i = 0; i < nodes; ++i) ASSERT_EQ(assign(i), i);
  }
  void vacate(int32_t slot) { jt_core::vacate_slot(table, free_slots, slot); }

  jt_core::Heap heap;
  jt_core::NodeTable table;
  jt_core::FreeSlots free_slots;
  std::vector<char> addresses;
};

TEST_F(NodeTable, OpensWithSlotsForFiveHundredAndTwelve) {
  EXPECT_EQ(table.capacity, 512);
  EXPECT_EQ(table.count, 0);
}

TEST_F(NodeTable, HandsSlotsOutInOrder) {
  fill(10);
  EXPECT_EQ(table.count, 10);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(table.slots[i], node(i));
}

TEST_F(NodeTable, DoesNotGrowBeforeItIsFull) {
  fill(512);
  EXPECT_EQ(table.capacity, 512);
  EXPECT_EQ(table.count, 512);
}

TEST_F(NodeTable, The513thNodeMakesItGrowAndTheFirst512Survive) {
  fill(513);
  EXPECT_EQ(table.capacity, 1024);
  EXPECT_EQ(table.count, 513);
  for (int i = 0; i < 513; ++i) EXPECT_EQ(table.slots[i], node(i));
}

TEST_F(NodeTable, GrowsInStepsOf512) {
  for (int i = 0; i < 6000; ++i) {
    ASSERT_EQ(assign(i), i);
    ASSERT_EQ(table.capacity, (i / 512 + 1) * 512);
  }
  for (int i = 0; i < 6000; ++i) ASSERT_EQ(table.slots[i], node(i));
}

TEST_F(NodeTable, AReleasedSlotHoldsAllOnes) {
  fill(3);
  vacate(1);
  EXPECT_EQ(table.slots[1], jt_core::released_slot());
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(table.slots[1]), UINTPTR_MAX);
}

TEST_F(NodeTable, TheCountIsAHighWaterMark) {
  fill(10);
  for (int i = 0; i < 10; ++i) vacate(i);
  EXPECT_EQ(table.count, 10);
  EXPECT_EQ(assign(0), 0);
  EXPECT_EQ(table.count, 10);
}

TEST_F(NodeTable, TheLowestFreeSlotIsTakenFirst) {
  fill(10);
  for (const int slot : {7, 3, 5}) vacate(slot);
  EXPECT_EQ(assign(20), 3);
  EXPECT_EQ(assign(21), 5);
  EXPECT_EQ(assign(22), 7);
  EXPECT_EQ(assign(23), 10);
  EXPECT_EQ(table.slots[5], node(21));
}

TEST_F(NodeTable, AFreeSlotIsTakenBeforeTheTableGrows) {
  fill(512);
  vacate(511);
  EXPECT_EQ(assign(600), 511);
  EXPECT_EQ(table.capacity, 512);
  EXPECT_EQ(assign(601), 512);
  EXPECT_EQ(table.capacity, 1024);
}

TEST_F(NodeTable, FreeSlotsAreRememberedWhenItGrows) {
  fill(1500);
  for (const int slot : {1499, 0, 31, 32, 33, 1023, 1024}) vacate(slot);
  for (const int slot : {0, 31, 32, 33, 1023, 1024, 1499}) EXPECT_EQ(assign(9000), slot);
  for (int i = 1500; i < 5000; ++i) ASSERT_EQ(assign(i), i);
  for (const int slot : {4999, 2048, 4096}) vacate(slot);
  for (const int slot : {2048, 4096, 4999}) EXPECT_EQ(assign(9000), slot);
}

TEST_F(NodeTable, AllSlotsAreVacatedAtOnce) {
  for (const int nodes : {0, 1, 31, 32, 33, 512, 1023, 1024, 1025, 33000}) {
    SCOPED_TRACE(nodes);
    close();
    open();
    fill(nodes);
    if (nodes > 20) vacate(20);
    jt_core::vacate_all_slots(table, free_slots);
    EXPECT_EQ(table.count, nodes);
    for (int i = 0; i < nodes; ++i) ASSERT_EQ(table.slots[i], jt_core::released_slot());
    fill(nodes + 5);
    EXPECT_EQ(table.count, nodes + 5);
  }
}

TEST_F(NodeTable, ClosingItForgetsEverything) {
  fill(600);
  close();
  EXPECT_EQ(table.slots, nullptr);
  EXPECT_EQ(table.capacity, 0);
  EXPECT_EQ(table.count, 0);
}

TEST_F(NodeTable, CountsTheLiveSlots) {
  EXPECT_EQ(jt_core::live_slots(table, free_slots), 0);
  fill(5);
  vacate(2);
  EXPECT_EQ(jt_core::live_slots(table, free_slots), 4);
}

// There is no memory for a table of that size, so it is only told that it is that large.
TEST_F(NodeTable, NoSlotIsAssignedBeyondTheLargestTable) {
  const jt_core::NodeTable small = table;
  table.capacity = table.count = INT32_MAX / 4 + 1;
  EXPECT_EQ(assign(0), -2);
  table = small;
}

TEST_F(NodeTable, KnowsWhichNodeStandsInASlot) {
  fill(3);
  vacate(2);
  EXPECT_TRUE(jt_core::holds_node(table, 1, node(1)));
  EXPECT_FALSE(jt_core::holds_node(table, 1, node(0)));
  EXPECT_FALSE(jt_core::holds_node(table, 2, node(2)));
  EXPECT_FALSE(jt_core::holds_node(table, 3, node(3)));
  EXPECT_FALSE(jt_core::holds_node(table, -1, node(0)));
  EXPECT_FALSE(jt_core::holds_node(table, std::numeric_limits<int32_t>::max(), node(0)));
}

TEST_F(NodeTable, AHundredThousandNodesComeBackLowestFirst) {
  constexpr int kNodes = 100000;
  fill(kNodes);
  EXPECT_EQ(table.capacity, (kNodes + 511) / 512 * 512);
  for (int i = kNodes - 1; i >= 0; --i) vacate(i);
  for (int i = 0; i < kNodes; ++i) ASSERT_EQ(assign(i), i);
  EXPECT_EQ(assign(kNodes), kNodes);
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
      ASSERT_EQ(assign(expected), expected);
      live.push_back(expected);
    } else {
      std::swap(live[random() % live.size()], live.back());
      vacate(live.back());
      free.insert(live.back());
      live.pop_back();
    }
  }
  ASSERT_EQ(table.count, count);
  for (int32_t slot = 0; slot < count; ++slot)
    ASSERT_EQ(table.slots[slot], free.count(slot) != 0 ? jt_core::released_slot() : node(slot));
}

// ---- Bounds ----

TEST_F(NodeTable, GivesSlotsUpToItsBound) {
  fill(10);
  jt_core::bound_slots(table, free_slots, 12);
  EXPECT_EQ(assign(10), 10);
  EXPECT_EQ(assign(11), 11);
  EXPECT_FALSE(free_slots.bound_reached);
  EXPECT_EQ(assign(12), jt_core::kNoSlotMemory);
  EXPECT_TRUE(free_slots.bound_reached);
  EXPECT_EQ(table.count, 12);
}

TEST_F(NodeTable, GivesReleasedSlotsUpToItsBound) {
  fill(10);
  for (const int32_t slot : {2, 5, 7}) vacate(slot);
  jt_core::bound_slots(table, free_slots, 9);
  EXPECT_EQ(assign(20), 2);
  EXPECT_EQ(assign(21), 5);
  EXPECT_EQ(assign(22), jt_core::kNoSlotMemory);
  EXPECT_TRUE(free_slots.bound_reached);
}

TEST_F(NodeTable, ASlotThatIsReleasedUnderABoundMayBeTakenAgain) {
  fill(10);
  jt_core::bound_slots(table, free_slots, 10);
  vacate(3);
  EXPECT_EQ(assign(20), 3);
  EXPECT_EQ(assign(21), jt_core::kNoSlotMemory);
}

TEST_F(NodeTable, MayGrowUnderABound) {
  fill(500);
  jt_core::bound_slots(table, free_slots, 1030);
  for (int i = 500; i < 1030; ++i) ASSERT_EQ(assign(i), i);
  EXPECT_EQ(table.capacity, 1536);
  EXPECT_EQ(assign(1030), jt_core::kNoSlotMemory);
}

TEST_F(NodeTable, ABoundBelowWhatIsLiveRefusesAll) {
  fill(10);
  vacate(4);
  jt_core::bound_slots(table, free_slots, 5);
  EXPECT_EQ(assign(20), jt_core::kNoSlotMemory);
}

TEST_F(NodeTable, ABoundCanBeTakenBack) {
  fill(10);
  jt_core::bound_slots(table, free_slots, 10);
  EXPECT_EQ(assign(10), jt_core::kNoSlotMemory);
  jt_core::bound_slots(table, free_slots, jt_core::kUnboundedSlots);
  EXPECT_FALSE(free_slots.bound_reached);
  for (int i = 10; i < 2000; ++i) ASSERT_EQ(assign(i), i);
}

}  // namespace
