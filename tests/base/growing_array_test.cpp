// The array that grows at its end: what was put into it, the filling of places in between, growing.
#include "base/growing_array.h"

#include <gtest/gtest.h>

namespace jt_core {
namespace {

TEST(GrowingArray, BeginsEmpty) {
  Heap heap{};
  EXPECT_EQ(GrowingArray<int>(heap).size(), 0U);
}

TEST(GrowingArray, KeepsWhatIsPutIntoIt) {
  Heap heap{};
  GrowingArray<int> array(heap);
  ASSERT_TRUE(array.set(0, 7, -1));
  ASSERT_TRUE(array.set(1, 8, -1));
  EXPECT_EQ(array.size(), 2U);
  EXPECT_EQ(array[0], 7);
  EXPECT_EQ(array[1], 8);
}

TEST(GrowingArray, FillsThePlacesInBetween) {
  Heap heap{};
  GrowingArray<int> array(heap);
  ASSERT_TRUE(array.set(3, 7, -1));
  EXPECT_EQ(array.size(), 4U);
  EXPECT_EQ(array[0], -1);
  EXPECT_EQ(array[2], -1);
  EXPECT_EQ(array[3], 7);
}

TEST(GrowingArray, PutsAnotherInThePlaceOfOne) {
  Heap heap{};
  GrowingArray<int> array(heap);
  ASSERT_TRUE(array.set(0, 7, -1));
  ASSERT_TRUE(array.set(0, 9, -1));
  EXPECT_EQ(array.size(), 1U);
  EXPECT_EQ(array[0], 9);
}

TEST(GrowingArray, KeepsAllWhileItGrows) {
  Heap heap{};
  GrowingArray<int> array(heap);
  for (int i = 0; i < 1000; ++i) ASSERT_TRUE(array.set(static_cast<std::size_t>(i), i * 2, -1));
  ASSERT_EQ(array.size(), 1000U);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(array[static_cast<std::size_t>(i)], i * 2);
}

}  // namespace
}  // namespace jt_core
