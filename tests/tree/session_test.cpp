// Sessions: what a new one holds, what closing one takes with it, and the order of the record's fields.
#include "tree/session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "support/session.h"

namespace {

TEST(ParserSpace, NeedsALabel) { EXPECT_EQ(create_parser_space(nullptr), nullptr); }

TEST(ParserSpace, MayHaveAnEmptyLabel) {
  jt_parser_space *const space = create_parser_space("");
  ASSERT_NE(space, nullptr);
  EXPECT_STREQ(space->label, "");
  EXPECT_EQ(delete_parser_space(space), 1);
}

TEST(ParserSpace, OwnsACopyOfItsLabel) {
  char label[] = "nalvrine";
  jt_parser_space *const space = create_parser_space(label);
  std::fill_n(label, 8, 'x');
  EXPECT_STREQ(space->label, "nalvrine");
  EXPECT_EQ(delete_parser_space(space), 1);
}

TEST(ParserSpace, KeepsALabelOfAnyLength) {
  const std::string label(100000, 'l');
  jt_parser_space *const space = create_parser_space(label.c_str());
  EXPECT_EQ(space->label, label);
  EXPECT_EQ(delete_parser_space(space), 1);
}

TEST(ParserSpace, StartsWithoutStatusMessagesAndNodes) {
  jt_parser_space *const space = create_parser_space("test");
  EXPECT_EQ(space->errors.status, 0);
  EXPECT_EQ(space->errors.previous, 0);
  for (const auto &message : space->errors.messages)
    EXPECT_TRUE(std::all_of(message.begin(), message.end(), [](char byte) { return byte == '\0'; }));
  EXPECT_EQ(space->table.count, 0);
  EXPECT_EQ(space->table.capacity, 512);
  EXPECT_EQ(delete_parser_space(space), 1);
}

TEST(ParserSpace, ItsTableStartsEmpty) {
  jt_parser_space *const space = create_parser_space("test");
  ASSERT_NE(space->table.slots, nullptr);
  EXPECT_TRUE(std::all_of(space->table.slots, space->table.slots + 512,
                          [](const jt_node *slot) { return slot == nullptr; }));
  EXPECT_EQ(delete_parser_space(space), 1);
}

TEST(ParserSpace, DeletingNullIsFine) { EXPECT_EQ(delete_parser_space(nullptr), 1); }

TEST(ParserSpace, TakesItsNodesWithIt) {
  jt_parser_space *const space = create_parser_space("test");
  for (int i = 0; i < 2000; ++i)
    ASSERT_NE(create_typed_node(space, "template", "template", JT_NODE_TEMPLATE, nullptr), nullptr);
  EXPECT_EQ(delete_parser_space(space), 1);
}

TEST(ParserSpace, SessionsAreIndependent) {
  jt_parser_space *const one = create_parser_space("one");
  jt_parser_space *const two = create_parser_space("two");
  EXPECT_NE(one, two);
  const jt_node *const node = create_typed_node(one, "template", "template", JT_NODE_TEMPLATE, nullptr);
  EXPECT_EQ(opaque_to_node(one, -100), node);
  EXPECT_EQ(opaque_to_node(two, -100), nullptr);
  EXPECT_EQ(delete_parser_space(one), 1);
  EXPECT_NE(create_typed_node(two, "template", "template", JT_NODE_TEMPLATE, nullptr), nullptr);
  EXPECT_EQ(delete_parser_space(two), 1);
}

TEST(ParserSpace, TheStatedFieldsStandInTheirOrder) {
  EXPECT_EQ(offsetof(jt_parser_space, label), 0U);
  EXPECT_LT(offsetof(jt_parser_space, label), offsetof(jt_parser_space, table));
  EXPECT_LT(offsetof(jt_parser_space, table), offsetof(jt_parser_space, errors));
  EXPECT_LT(offsetof(jt_core::NodeTable, slots), offsetof(jt_core::NodeTable, capacity));
  EXPECT_LT(offsetof(jt_core::NodeTable, capacity), offsetof(jt_core::NodeTable, count));
  EXPECT_LT(offsetof(jt_core::ErrorStore, status), offsetof(jt_core::ErrorStore, messages));
  EXPECT_LT(offsetof(jt_core::ErrorStore, messages), offsetof(jt_core::ErrorStore, previous));
  EXPECT_EQ(sizeof(jt_core::ErrorStore::messages), 5U * 256U);
}

}  // namespace
