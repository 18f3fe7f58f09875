// The heap of a session: it is the allocator's or that of the C library, counts what is asked for, and refuses what
// goes beyond its bound.
#include "base/heap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "support/counting_allocator.h"

namespace {

using jt_test::CountingAllocator;

bool all_zero(const void *block, std::size_t bytes) {
  const auto *const begin = static_cast<const unsigned char *>(block);
  return std::all_of(begin, begin + bytes, [](unsigned char byte) { return byte == 0; });
}

// The first case of each pair has an allocator, the second the heap of the C library.
class Heap : public ::testing::TestWithParam<bool> {
 protected:
  Heap() : heap() {
    if (GetParam()) heap.allocator = allocator.record();
  }

  CountingAllocator allocator;
  jt_core::Heap heap;
};

INSTANTIATE_TEST_SUITE_P(Both, Heap, ::testing::Values(true, false), [](const auto &kind) {
  return std::string(kind.param ? "OfAnAllocator" : "OfTheLibrary");
});

TEST_P(Heap, GivesBlocksAndTakesThemBack) {
  void *const block = heap.allocate(100);
  ASSERT_NE(block, nullptr);
  std::memset(block, 'x', 100);
  EXPECT_EQ(allocator.blocks(), GetParam() ? 1U : 0U);
  heap.release(block);
  EXPECT_EQ(allocator.blocks(), 0U);
}

TEST_P(Heap, GivesZeroedBlocks) {
  void *const block = heap.allocate_zeroed(1000);
  ASSERT_NE(block, nullptr);
  EXPECT_TRUE(all_zero(block, 1000));
  heap.release(block);
}

TEST_P(Heap, ReleasingNullIsFine) {
  heap.release(nullptr);
  EXPECT_FALSE(allocator.was_misused());
}

TEST_P(Heap, ABlockKeepsItsContentWhenItsSizeChanges) {
  void *block = heap.reallocate(nullptr, 6);
  std::memcpy(block, "paper", 6);
  block = heap.reallocate(block, 6000);
  EXPECT_STREQ(static_cast<char *>(block), "paper");
  EXPECT_EQ(allocator.blocks(), GetParam() ? 1U : 0U);
  EXPECT_EQ(allocator.reallocated(), GetParam() ? 1 : 0);
  heap.release(block);
}

TEST_P(Heap, WhatIsHandedOverIsReleasedWithFree) {
  void *const block = heap.allocate(4000);
  std::memcpy(block, "paper", 6);
  void *const text = heap.hand_over(block, 6);
  EXPECT_STREQ(static_cast<char *>(text), "paper");
  EXPECT_EQ(allocator.blocks(), 0U);
  std::free(text);
}

TEST_P(Heap, CountsWhatIsAskedFor) {
  void *const one = heap.allocate(100);
  void *const two = heap.allocate_zeroed(20);
  void *const three = heap.reallocate(one, 300);
  heap.release(two);
  EXPECT_EQ(heap.asked, 420U);
  heap.release(three);
  EXPECT_EQ(heap.asked, 420U);
  EXPECT_FALSE(heap.bound_reached);
}

TEST_P(Heap, GivesUpToItsBound) {
  heap.most = 100;
  void *const one = heap.allocate(60);
  void *const two = heap.allocate_zeroed(40);
  EXPECT_NE(one, nullptr);
  EXPECT_NE(two, nullptr);
  EXPECT_FALSE(heap.bound_reached);
  EXPECT_EQ(heap.allocate(1), nullptr);
  EXPECT_TRUE(heap.bound_reached);
  EXPECT_EQ(heap.asked, 100U);
  heap.release(one);
  heap.release(two);
}

TEST_P(Heap, EveryKindOfRequestIsRefusedBeyondTheBound) {
  void *const block = heap.allocate(50);
  heap.most = 90;
  EXPECT_EQ(heap.reallocate(block, 41), nullptr);
  EXPECT_TRUE(heap.bound_reached);
  heap.bound_reached = false;
  EXPECT_EQ(heap.allocate_zeroed(SIZE_MAX), nullptr);
  EXPECT_TRUE(heap.bound_reached);
  heap.release(block);
}

TEST_P(Heap, RefusesSmallerRequestsOnceTheBoundWasReached) {
  heap.most = 100;
  EXPECT_EQ(heap.allocate(101), nullptr);
  EXPECT_EQ(heap.allocate(1), nullptr);
  EXPECT_EQ(heap.asked, 0U);
}

TEST_P(Heap, AnAllocatorWithoutMemoryIsNotTheBound) {
  heap.most = UINT64_MAX;
  allocator.fail_from(1);
  if (GetParam()) {
    EXPECT_EQ(heap.allocate(10), nullptr);
    EXPECT_EQ(heap.allocate_zeroed(10), nullptr);
  }
  EXPECT_EQ(heap.allocate(SIZE_MAX - 64), nullptr);
  EXPECT_FALSE(heap.bound_reached);
}

TEST(HeapOfAnAllocator, ABlockThatCannotBeReallocatedStays) {
  CountingAllocator allocator;
  jt_core::Heap heap = {};
  heap.allocator = allocator.record();
  void *const block = heap.allocate(6);
  std::memcpy(block, "paper", 6);
  allocator.fail_from(1);
  EXPECT_EQ(heap.reallocate(block, 60), nullptr);
  EXPECT_STREQ(static_cast<char *>(block), "paper");
  heap.release(block);
}

TEST(HeapOfAnAllocator, HandingOverWithoutMemoryLeavesTheBlockWhereItIs) {
  CountingAllocator allocator;
  jt_core::Heap heap = {};
  heap.allocator = allocator.record();
  void *const block = heap.allocate(6);
  EXPECT_EQ(heap.hand_over(block, SIZE_MAX - 64), nullptr);
  EXPECT_EQ(allocator.blocks(), 1U);
  heap.release(block);
}

}  // namespace
