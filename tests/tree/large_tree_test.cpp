// Trees that are as wide or as deep as nobody writes them are destroyed on a thread with next to no stack:
// nothing here recurses along the tree, and nothing takes time that is quadratic in it.
#include <gtest/gtest.h>

#include <cstdint>

#include "support/small_stack.h"
#include "tree/tree_session.h"

namespace jt_test {
namespace {

constexpr int kNodes = 100000;

class LargeTree : public TreeTest {
 protected:
  // Attributes named "header" hold attributes, so they nest as deep as one likes.
  jt_node *deep_chain() {
    jt_node *const top = make_header();
    jt_node *parent = top;
    for (int i = 0; i < kNodes; ++i) {
      jt_node *const child = create_typed_node(space, "integer", "header", JT_NODE_ATTRIBUTE, parent);
      EXPECT_EQ(add_child(space, parent, child), 1);
      parent = child;
    }
    bottom = parent;
    return top;
  }
  jt_node *wide_invocation() {
    jt_node *const parent = scan_invocation();
    for (int i = 0; i < kNodes; ++i)
      EXPECT_EQ(add_child(space, parent, create_typed_node(space, "integer", "a", JT_NODE_ATTRIBUTE, parent)),
                1);
    bottom = parent->last_child;
    return parent;
  }
  // A call on a small stack, and what it returned.
  using Call = int32_t (*)(jt_parser_space *, jt_node *);
  int32_t call(Call destroy, jt_node *node) {
    int32_t result = -1;
    on_a_small_stack([&] { result = destroy(space, node); });
    return result;
  }
  void close_on_a_small_stack() {
    int32_t result = -1;
    on_a_small_stack([&] { result = jt_close_parsing_utility(space); });
    EXPECT_EQ(result, 1);
    space = jt_open_parsing_utility("test");
  }

  jt_node *bottom = nullptr;
};

TEST_F(LargeTree, ADeepChainIsDestroyedFromTheTop) {
  EXPECT_EQ(call(destroy_node, deep_chain()), 1);
  expect_all_released();
}

TEST_F(LargeTree, ADeepChainLosesItsChildren) {
  jt_node *const top = deep_chain();
  EXPECT_EQ(call(destroy_children, top), 1);
  EXPECT_EQ(count_alive(), 1U);
  EXPECT_EQ(top->first_child, nullptr);
}

TEST_F(LargeTree, ADeepChainLosesTheChildAtTheCursor) {
  EXPECT_EQ(call(delete_index_child, deep_chain()), 1);
  EXPECT_EQ(count_alive(), 1U);
}

TEST_F(LargeTree, ADeepChainIsDestroyedAltogetherFromTheTop) {
  EXPECT_EQ(call(destroy_all_nodes, deep_chain()), 1);
  expect_all_released();
}

TEST_F(LargeTree, ADeepChainIsDestroyedAltogetherFromTheBottom) {
  deep_chain();
  EXPECT_EQ(call(destroy_all_nodes, bottom), 1);
  expect_all_released();
}

TEST_F(LargeTree, ASessionClosesWithADeepChain) {
  deep_chain();
  close_on_a_small_stack();
}

TEST_F(LargeTree, ADeepChainIsTakenApartFromTheBottom) {
  deep_chain();
  for (int i = 0; i < kNodes; ++i) {
    jt_node *const parent = bottom->parent;
    ASSERT_EQ(destroy_node(space, bottom), 1);
    bottom = parent;
  }
  EXPECT_EQ(count_alive(), 1U);
}

TEST_F(LargeTree, AWideTreeIsDestroyedFromTheTop) {
  EXPECT_EQ(call(destroy_node, wide_invocation()->parent->parent), 1);
  expect_all_released();
}

TEST_F(LargeTree, AWideTreeLosesItsChildren) {
  jt_node *const parent = wide_invocation();
  EXPECT_EQ(call(destroy_children, parent), 1);
  EXPECT_EQ(parent->first_child, nullptr);
  EXPECT_EQ(count_alive(), 3U);
}

TEST_F(LargeTree, AWideTreeIsDestroyedAltogetherFromTheTop) {
  EXPECT_EQ(call(destroy_all_nodes, wide_invocation()->parent->parent), 1);
  expect_all_released();
}

TEST_F(LargeTree, AWideTreeIsDestroyedAltogetherFromTheLastChild) {
  wide_invocation();
  EXPECT_EQ(call(destroy_all_nodes, bottom), 1);
  expect_all_released();
}

TEST_F(LargeTree, AWideTreeIsDestroyedChildByChildFromEitherEnd) {
  jt_node *const parent = wide_invocation();
  for (int i = 0; i < kNodes / 2; ++i) {
    ASSERT_EQ(destroy_node(space, parent->first_child), 1);
    ASSERT_EQ(destroy_node(space, parent->last_child), 1);
  }
  EXPECT_EQ(parent->first_child, nullptr);
  EXPECT_EQ(parent->last_child, nullptr);
}

TEST_F(LargeTree, AWideTreeIsDeletedAtTheCursor) {
  jt_node *const parent = wide_invocation();
  for (int i = 0; i < kNodes; ++i) ASSERT_EQ(delete_index_child(space, parent), 1);
  EXPECT_EQ(delete_index_child(space, parent), 0);
}

TEST_F(LargeTree, ASessionClosesWithAWideTree) {
  wide_invocation();
  close_on_a_small_stack();
}

}  // namespace
}  // namespace jt_test
