// An array that grows: places are filled up, records stay when it grows, and without memory it is as it was.
#include "base/growing_array.h"

#include <gtest/gtest.h>

namespace jt_test {
namespace {

class GrowingArrayTest : public ::testing::Test {
 protected:
  jt_core::Heap heap{};
  jt_core::GrowingArray<int> array{heap};
};

TEST_F(GrowingArrayTest, BeginsEmptyAndAsksForNothing) {
  EXPECT_EQ(array.size(), 0U);
  EXPECT_EQ(heap.asked, 0U);
}

TEST_F(GrowingArrayTest, PlacesThatHaveNoRecordGetTheFilling) {
  ASSERT_TRUE(array.set(3, 7, -1));
  ASSERT_EQ(array.size(), 4U);
  EXPECT_EQ(array[0], -1);
  EXPECT_EQ(array[2], -1);
  EXPECT_EQ(array[3], 7);
}

TEST_F(GrowingArrayTest, ARecordReplacesTheOneInItsPlace) {
  ASSERT_TRUE(array.set(1, 7, -1));
  ASSERT_TRUE(array.set(0, 8, -1));
  ASSERT_TRUE(array.set(1, 9, -1));
  EXPECT_EQ(array.size(), 2U);
  EXPECT_EQ(array[0], 8);
  EXPECT_EQ(array[1], 9);
}

TEST_F(GrowingArrayTest, RecordsStayWhenItGrows) {
  for (int i = 0; i < 1000; ++i) ASSERT_TRUE(array.set(static_cast<std::size_t>(i), i * 3, -1));
  ASSERT_EQ(array.size(), 1000U);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(array[static_cast<std::size_t>(i)], i * 3);
}

TEST_F(GrowingArrayTest, WithoutMemoryItIsAsItWas) {
  ASSERT_TRUE(array.set(0, 7, -1));
  heap.most = heap.asked;
  EXPECT_FALSE(array.set(100'000, 8, -1));
  EXPECT_EQ(array.size(), 1U);
  EXPECT_EQ(array[0], 7);
  EXPECT_TRUE(array.set(1, 9, -1));
}

}  // namespace
}  // namespace jt_test
