// Opaque handles: how they are computed, what they resolve to, and which are refused.
#include <gtest/gtest.h>

#include <limits>

#include "tree/tree_session.h"

namespace {

using jt_test::Messages;

constexpr char kRefused[] = "SYSTEM ERROR: unknown opaque marker ...";
constexpr int32_t kSmallest = std::numeric_limits<int32_t>::min();
constexpr int32_t kLargest = std::numeric_limits<int32_t>::max();

class Handle : public jt_test::TreeTest {
 protected:
  void expect_refused(int32_t handle) {
    SCOPED_TRACE(handle);
    forget_messages();
    EXPECT_EQ(at(handle), nullptr);
    EXPECT_EQ(messages(), Messages{kRefused});
    EXPECT_EQ(status(), -7);
  }
};

TEST_F(Handle, IsMinusOneHundredMinusTheBookmark) {
  EXPECT_EQ(bookmark_to_opaque(0), -100);
  EXPECT_EQ(bookmark_to_opaque(1), -101);
  EXPECT_EQ(bookmark_to_opaque(5), -105);
  EXPECT_EQ(bookmark_to_opaque(100000), -100100);
}

TEST_F(Handle, TheSameFormulaLeadsBack) {
  for (const int32_t bookmark : {0, 1, 5, 511, 512, 100000, 2147483547})
    EXPECT_EQ(bookmark_to_opaque(bookmark_to_opaque(bookmark)), bookmark);
}

TEST_F(Handle, ResolvesToTheNodeInTheSlot) {
  const jt_node *const first = make_template();
  const jt_node *const second = make_header();
  EXPECT_EQ(at(-100), first);
  EXPECT_EQ(at(-101), second);
  EXPECT_EQ(at(bookmark_to_opaque(second->bookmark)), second);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Handle, NodesOfEveryKindHaveOne) {
  const jt_node *const value = add_value(add_attribute(scan_invocation(), "integer", "copies"), "1");
  for (const jt_node *node = value; node != nullptr; node = node->parent)
    EXPECT_EQ(at(bookmark_to_opaque(node->bookmark)), node);
}

TEST_F(Handle, OtherNumbersAreRefused) {
  make_template();
  for (const int32_t handle : {0, 5, 1, -1, -50, -99, -101, -200, -612, kSmallest, kSmallest + 1,
                               kSmallest + 100, kLargest, kLargest - 99, 100})
    expect_refused(handle);
}

TEST_F(Handle, EveryNumberIsRefusedInAnEmptySession) {
  for (const int32_t handle : {0, -99, -100, -101, kSmallest, kLargest}) expect_refused(handle);
}

TEST_F(Handle, AReleasedOneIsRefused) {
  jt_node *const first = make_template();
  const jt_node *const second = make_template();
  destroy_node(space, first);
  expect_refused(-100);
  EXPECT_EQ(at(-101), second);
}

TEST_F(Handle, ATakenSlotResolvesToTheNewNode) {
  destroy_node(space, make_template());
  const jt_node *const header = make_header();
  EXPECT_EQ(header->bookmark, 0);
  EXPECT_EQ(at(-100), header);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Handle, ResolvesToNothingWithoutASession) {
  make_template();
  EXPECT_EQ(opaque_to_node(nullptr, -100), nullptr);
  EXPECT_EQ(opaque_to_node(nullptr, 0), nullptr);
  EXPECT_EQ(messages(), Messages());
}

}  // namespace
