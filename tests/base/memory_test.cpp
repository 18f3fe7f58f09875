// Blocks of the heap: what my_calloc gives and refuses, what er_free takes, and the copies made of texts.
#include "base/memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "support/session.h"
#include "tree/session.h"

// A sanitizer's allocator ends the program on an impossible request unless it is told to refuse it instead.
extern "C" const char *__asan_default_options();
extern "C" const char *__asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

using jt_test::Messages;

class Memory : public jt_test::SessionTest {};

bool all_zero(const void *block, std::size_t bytes) {
  const auto *const first = static_cast<const unsigned char *>(block);
  return std::all_of(first, first + bytes, [](unsigned char byte) { return byte == 0; });
}

TEST_F(Memory, ABlockIsZeroed) {
  void *const block = my_calloc(space, 100, 7);
  ASSERT_NE(block, nullptr);
  EXPECT_TRUE(all_zero(block, 700));
  EXPECT_EQ(er_free(block), 1);
}

TEST_F(Memory, ABlockIsZeroedAlsoWhereAnotherHasBeen) {
  for (int i = 0; i < 100; ++i) {
    auto *const block = static_cast<char *>(my_calloc(space, 1, 64));
    ASSERT_TRUE(all_zero(block, 64));
    std::fill_n(block, 64, 'x');
    er_free(block);
  }
}

TEST_F(Memory, ABlockNeedsNoSession) {
  void *const block = my_calloc(nullptr, 3, 5);
  ASSERT_NE(block, nullptr);
  EXPECT_TRUE(all_zero(block, 15));
  EXPECT_EQ(er_free(block), 1);
}

TEST_F(Memory, NothingIsGivenForNothingAndNothingIsRecorded) {
  constexpr int32_t kSmallest = std::numeric_limits<int32_t>::min();
  EXPECT_EQ(my_calloc(space, 0, 8), nullptr);
  EXPECT_EQ(my_calloc(space, 8, 0), nullptr);
  EXPECT_EQ(my_calloc(space, 0, 0), nullptr);
  EXPECT_EQ(my_calloc(space, 8, -1), nullptr);
  EXPECT_EQ(my_calloc(space, 8, kSmallest), nullptr);
  EXPECT_EQ(my_calloc(space, 0, -1), nullptr);
  EXPECT_EQ(my_calloc(nullptr, 0, 8), nullptr);
  EXPECT_EQ(messages(), Messages());
  EXPECT_EQ(status(), 0);
}

TEST_F(Memory, AProductThatOverflowsIsAnAllocationFailure) {
  EXPECT_EQ(my_calloc(space, SIZE_MAX, 2), nullptr);
  EXPECT_EQ(messages(), Messages{"MEMORY ERROR: allocation error ..."});
  EXPECT_EQ(status(), -6);
}

TEST_F(Memory, AProductThatOverflowsToASmallOneIsAnAllocationFailure) {
  EXPECT_EQ(my_calloc(space, SIZE_MAX / 4 + 2, 4), nullptr);
  EXPECT_EQ(messages(), Messages{"MEMORY ERROR: allocation error ..."});
}

TEST_F(Memory, MoreThanThereIsIsAnAllocationFailure) {
  EXPECT_EQ(my_calloc(space, SIZE_MAX - 65536, 1), nullptr);
  EXPECT_EQ(messages(), Messages{"MEMORY ERROR: allocation error ..."});
}

TEST_F(Memory, AFailureWithoutASessionIsSilent) {
  EXPECT_EQ(my_calloc(nullptr, SIZE_MAX, 2), nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Memory, TheSessionWorksOnAfterAFailure) {
  EXPECT_EQ(my_calloc(space, SIZE_MAX, 2), nullptr);
  void *const block = my_calloc(space, 1, 2);
  EXPECT_NE(block, nullptr);
  er_free(block);
}

TEST_F(Memory, ReleasingNullIsFine) { EXPECT_EQ(er_free(nullptr), 1); }

TEST_F(Memory, ABlockOfOneByteCanBeReleased) { EXPECT_EQ(er_free(my_calloc(space, 1, 1)), 1); }

TEST_F(Memory, AKeptTextIsACopyInTheHeapOfItsSession) {
  jt_core::Heap heap = {};
  const std::string_view text = "scan and more";
  char *const reported = jt_core::keep_text(space, heap, text.substr(0, 4));
  char *const plain = jt_core::keep_plain_text(heap, text.substr(0, 4));
  EXPECT_STREQ(reported, "scan");
  EXPECT_STREQ(plain, "scan");
  EXPECT_EQ(heap.asked, 10U);
  heap.release(reported);
  heap.release(plain);
}

TEST_F(Memory, WhatCannotBeKeptIsReportedLikeACopy) {
  jt_core::Heap heap = {};
  const std::string_view impossible("x", SIZE_MAX - 64);
  EXPECT_EQ(jt_core::keep_plain_text(heap, impossible), nullptr);
  EXPECT_EQ(messages(), Messages());
  EXPECT_EQ(jt_core::keep_text(space, heap, impossible), nullptr);
  EXPECT_EQ(jt_core::allocate_kept_block(space, heap, SIZE_MAX - 64), nullptr);
  EXPECT_EQ(messages(),
            (Messages{"MEMORY ERROR: allocation error ...", "MEMORY ERROR: allocation error ..."}));
}

TEST_F(Memory, ACopyOfATextIsTerminatedWhereTheViewEnds) {
  const std::string_view text = "scan and more";
  EXPECT_EQ(jt_test::take_text(jt_core::copy_text(space, text.substr(0, 4))), "scan");
  EXPECT_EQ(jt_test::take_text(jt_core::copy_plain_text(text.substr(0, 4))), "scan");
  EXPECT_EQ(jt_test::take_text(jt_core::copy_text(space, "")), "");
  EXPECT_EQ(jt_test::take_text(jt_core::copy_plain_text("")), "");
  EXPECT_EQ(jt_test::take_text(jt_core::copy_text(nullptr, "x")), "x");
}

TEST_F(Memory, ImpossibleCopiesReportAsTheyPromise) {
  const std::string_view impossible("x", SIZE_MAX - 64);
  EXPECT_EQ(jt_core::copy_plain_text(impossible), nullptr);
  EXPECT_EQ(messages(), Messages());
  EXPECT_EQ(jt_core::copy_text(space, impossible), nullptr);
  EXPECT_EQ(messages(), Messages{"MEMORY ERROR: allocation error ..."});
}

}  // namespace
