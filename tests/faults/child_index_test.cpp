// The index of the children without memory for it, or for the places of equal children: it is done without, every
// child is still found, and the next long search makes it again.
#include <gtest/gtest.h>

#include <string>

#include "support/failing_allocator.h"
#include "tree/child_index.h"
#include "tree/tree_session.h"

namespace jt_test {
namespace {

class IndexWithoutMemory : public TreeTest {
 protected:
  ~IndexWithoutMemory() override { expect_sound(*space); }

  // Pairs of equal values.
  void add_pairs(int count) {
    for (int i = 0; i < count; ++i) add_value(attribute, std::to_string(i / 2).c_str());
  }

  jt_node *find(const std::int32_t &number) {
    return jt_core::find_value(*attribute, reinterpret_cast<const jt_value *>(&number));
  }

  // The first of each pair is the one that is found.
  void expect_pairs_found() {
    const Nodes children = children_of(attribute);
    for (std::size_t i = 0; i < children.size(); i += 2) {
      ASSERT_EQ(find(static_cast<std::int32_t>(i / 2)), children[i]) << i;
    }
  }

  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "numbers");
};

TEST_F(IndexWithoutMemory, IsNotMade) {
  add_pairs(40);
  fail_allocations(1, Failing::kOnlyOne);
  EXPECT_EQ(find(19), attribute->last_child->previous_sibling);
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_EQ(attribute->index, nullptr);
  expect_pairs_found();
  EXPECT_NE(attribute->index, nullptr);
}

TEST_F(IndexWithoutMemory, IsGivenUpWhereEqualChildrenMeetWhileItIsMade) {
  add_pairs(40);
  fail_allocations(2, Failing::kOnlyOne);
  EXPECT_EQ(find(19), attribute->last_child->previous_sibling);
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_EQ(attribute->index, nullptr);
  expect_pairs_found();
  EXPECT_NE(attribute->index, nullptr);
}

TEST_F(IndexWithoutMemory, IsGivenUpWhereTheFirstEqualChildComes) {
  for (int i = 0; i < 20; ++i) add_value(attribute, std::to_string(i).c_str());
  EXPECT_EQ(find(19), attribute->last_child);
  jt_node *const second = create_value_node(space, attribute->type, "5");
  fail_allocations(1, Failing::kOnlyOne);
  EXPECT_EQ(add_child(space, attribute, second), 1);
  EXPECT_EQ(allow_allocations(), 1);
  EXPECT_EQ(attribute->index, nullptr);
  EXPECT_EQ(find(5), children_of(attribute)[5]);
}

// Growing takes a block for the table, then one for the places.
TEST_F(IndexWithoutMemory, IsGivenUpWhereItCannotGrow) {
  for (const int number : {1, 2}) {
    destroy_children(space, attribute);
    add_pairs(40);
    expect_pairs_found();
    int failed = 0;
    for (int i = 40; failed == 0 && i < 200; ++i) {
      jt_node *const value = create_value_node(space, attribute->type, std::to_string(i / 2).c_str());
      fail_allocations(number, Failing::kOnlyOne);
      EXPECT_EQ(add_child(space, attribute, value), 1);
      failed = allow_allocations();
    }
    EXPECT_EQ(failed, 1);
    EXPECT_EQ(attribute->index, nullptr);
    expect_pairs_found();
    EXPECT_NE(attribute->index, nullptr);
  }
}

}  // namespace
}  // namespace jt_test
