// Types of a client's own that are made of the library's: their operations make, copy and release values of
// another type on the way.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tree/child_index.h"
#include "tree/tree_session.h"

namespace {

using jt_test::take_text;

// Refuses what it has read.
jt_value *eval_narrow(jt_parser_space *space, char *text) {
  jt_value *const value = eval_gutter(space, text);
  kill_gutter(space, value);
  return nullptr;
}

// Gives a copy of what it has read.
jt_value *eval_again(jt_parser_space *space, char *text) {
  jt_value *const value = eval_gutter(space, text);
  jt_value *const copy = copy_gutter(space, value);
  kill_gutter(space, value);
  return copy;
}

jt_value *copy_nothing(jt_parser_space *space, const jt_value *value) {
  kill_gutter(space, copy_gutter(space, value));
  return nullptr;
}

constexpr jt_type kNarrow = {"narrow", eval_narrow, copy_nothing, deval_gutter, cmp_gutter, kill_gutter};
constexpr jt_type kAgain = {"again", eval_again, copy_gutter, deval_gutter, cmp_gutter, kill_gutter};

class ClientType : public jt_test::TreeTest {};

TEST_F(ClientType, MayRefuseAValueThatALibraryTypeRead) {
  EXPECT_EQ(create_value_node(space, &kNarrow, "1/2/MM"), nullptr);
  EXPECT_EQ(count_alive(), 0U);
}

TEST_F(ClientType, MayGiveACopyOfAValueThatALibraryTypeRead) {
  jt_node *const node = create_value_node(space, &kAgain, "1/2/MM");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(take_text(deval_gutter(space, node->value)), "1/2/MM");
  EXPECT_EQ(destroy_node(space, node), 1);
}

TEST_F(ClientType, MayRefuseAValueThatALibraryTypeCopied) {
  constexpr int32_t kGutter[] = {1, 2, 20};
  EXPECT_EQ(create_value_ptr_node(space, &kNarrow, reinterpret_cast<const jt_value *>(kGutter)), nullptr);
  EXPECT_EQ(count_alive(), 0U);
}

// No table of the children knows their hashes.
TEST_F(ClientType, MayHaveManyValues) {
  jt_node *const attribute = add_attribute(scan_invocation(), "struct_gutter", "gutters");
  attribute->type = &kAgain;
  for (int i = 0; i < 40; ++i) {
    ASSERT_NE(add_value(attribute, (std::to_string(i) + "/2/MM").c_str()), nullptr);
  }
  for (const int32_t place : {0, 20, 39}) {
    const int32_t gutter[] = {place, 2, 20};
    jt_node *const found = jt_core::find_value(*attribute, reinterpret_cast<const jt_value *>(gutter));
    EXPECT_EQ(found, jt_test::children_of(attribute)[static_cast<std::size_t>(place)]);
  }
  EXPECT_EQ(attribute->index, nullptr);
}

}  // namespace
