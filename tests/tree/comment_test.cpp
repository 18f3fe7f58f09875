// Comments of nodes: they grow by what is appended and by nothing else.
#include <gtest/gtest.h>

#include <string>

#include "tree/tree_session.h"

namespace {

using jt_test::Messages;

class Comment : public jt_test::TreeTest {};

TEST_F(Comment, ANodeHasNoneAtFirst) { EXPECT_EQ(make_template()->comment, nullptr); }

TEST_F(Comment, TheFirstTextIsTheComment) {
  jt_node *const node = make_template();
  EXPECT_EQ(add_comment(space, node, "# first\n"), 1);
  EXPECT_STREQ(node->comment, "# first\n");
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Comment, LaterTextsFollowWithoutSeparator) {
  jt_node *const node = make_template();
  for (const char *const text : {"# a\n", "# b\n", "c", "d"}) EXPECT_EQ(add_comment(space, node, text), 1);
  EXPECT_STREQ(node->comment, "# a\n# b\ncd");
}

TEST_F(Comment, TheTextIsCopied) {
  jt_node *const node = make_template();
  char text[] = "# a";
  add_comment(space, node, text);
  text[2] = 'x';
  EXPECT_STREQ(node->comment, "# a");
}

TEST_F(Comment, AnEmptyTextMakesAnEmptyComment) {
  jt_node *const node = make_template();
  EXPECT_EQ(add_comment(space, node, ""), 1);
  EXPECT_STREQ(node->comment, "");
  EXPECT_EQ(add_comment(space, node, "# a"), 1);
  EXPECT_EQ(add_comment(space, node, ""), 1);
  EXPECT_STREQ(node->comment, "# a");
}

TEST_F(Comment, NullsAreRefusedWithoutAReport) {
  jt_node *const node = make_template();
  EXPECT_EQ(add_comment(space, nullptr, "# a"), 0);
  EXPECT_EQ(add_comment(space, node, nullptr), 0);
  EXPECT_EQ(add_comment(space, nullptr, nullptr), 0);
  EXPECT_EQ(add_comment(nullptr, node, "# a"), 0);
  EXPECT_EQ(node->comment, nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Comment, ANullTextKeepsTheComment) {
  jt_node *const node = make_template();
  add_comment(space, node, "# a");
  EXPECT_EQ(add_comment(space, node, nullptr), 0);
  EXPECT_STREQ(node->comment, "# a");
}

TEST_F(Comment, EveryKindOfNodeMayHaveOne) {
  jt_node *const invocation = scan_invocation();
  jt_node *const attribute = add_attribute(invocation, "integer", "copies");
  for (jt_node *const node : {make_template(), make_header(), invocation->parent, invocation, attribute,
                              add_value(attribute, "1")}) {
    EXPECT_EQ(add_comment(space, node, "# a\n"), 1);
    EXPECT_STREQ(node->comment, "# a\n");
  }
}

TEST_F(Comment, MayHaveAnyLength) {
  jt_node *const node = make_template();
  const std::string text(1000000, 'c');
  EXPECT_EQ(add_comment(space, node, text.c_str()), 1);
  EXPECT_EQ(add_comment(space, node, text.c_str()), 1);
  EXPECT_EQ(node->comment, text + text);
}

TEST_F(Comment, MayGrowLineByLine) {
  jt_node *const node = make_template();
  std::string expected;
  for (int i = 0; i < 20000; ++i) {
    const std::string line = "# line " + std::to_string(i) + "\n";
    ASSERT_EQ(add_comment(space, node, line.c_str()), 1);
    expected += line;
  }
  EXPECT_EQ(node->comment, expected);
}

TEST_F(Comment, MayBeAppendedToItself) {
  jt_node *const node = make_template();
  add_comment(space, node, "# a\n");
  EXPECT_EQ(add_comment(space, node, node->comment), 1);
  EXPECT_STREQ(node->comment, "# a\n# a\n");
  EXPECT_EQ(add_comment(space, node, node->comment + 4), 1);
  EXPECT_STREQ(node->comment, "# a\n# a\n# a\n");
  for (int i = 0; i < 10; ++i) ASSERT_EQ(add_comment(space, node, node->comment), 1);
  EXPECT_EQ(std::string(node->comment).size(), 12U * 1024U);
}

TEST_F(Comment, GoesWithItsNode) {
  jt_node *const node = make_template();
  add_comment(space, node, "# a\n");
  EXPECT_EQ(destroy_node(space, node), 1);
  EXPECT_EQ(make_template()->comment, nullptr);
}

}  // namespace
