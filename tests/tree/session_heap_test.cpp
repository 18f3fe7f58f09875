// Nodes of one session in a tree of another, each session with an allocator of its own: whatever a node comes to
// keep there comes from its own session's, and goes back to it whichever session goes first. A value that a
// client's own type made goes back to that type.
#include <gtest/gtest.h>

#include <string>

#include "support/counting_allocator.h"
#include "tree/odd_types.h"
#include "tree/tree_session.h"

namespace jt_test {
namespace {

class SessionHeap : public ::testing::Test {
 protected:
  SessionHeap() : ours(opened(of_ours)), theirs(opened(of_theirs)) {
    root = decoded_root(ours);
    jt_node *const their_invocation = invocation_in(decoded_root(theirs));
    foreign = get_child(theirs, their_invocation, "Value");
    EXPECT_EQ(destroy_node(ours, get_child(ours, invocation_in(root), "Value")), 1);
    EXPECT_EQ(add_child(ours, invocation_in(root), foreign), 1);
  }
  ~SessionHeap() override {
    EXPECT_FALSE(of_ours.was_misused());
    EXPECT_FALSE(of_theirs.was_misused());
    EXPECT_EQ(of_ours.blocks(), 0U);
    EXPECT_EQ(of_theirs.blocks(), 0U);
  }

  static jt_parser_space *opened(CountingAllocator &allocator) {
    const jt_allocator record = allocator.record();
    return jt_open_session("heap", &record);
  }
  static jt_node *decoded_root(jt_parser_space *space) {
    const char *const text = "[ kmt_svc_scan S ] { * string Value = one, two; } end";
    return opaque_to_node(space, jt_decode_template(space, text));
  }
  static jt_node *invocation_in(const jt_node *root) { return root->first_child->first_child; }
  int32_t job() const { return bookmark_to_opaque(root->bookmark); }

  // What our session does with their attribute.
  void change() {
    const std::string length(2000, 'n');
    const uint32_t number = 999;
    for (int round = 0; round < 3; ++round) {
      EXPECT_EQ(add_comment(ours, foreign, "# a comment\n"), 1);
      EXPECT_EQ(set_status(ours, foreign, reinterpret_cast<const jt_status *>(&number)), 1);
      const char *const old_value = round == 0 ? "one" : length.c_str();
      EXPECT_EQ(jt_override_attribute_value(ours, job(), "S", "Value",
                                            reinterpret_cast<const jt_value *>(old_value),
                                            reinterpret_cast<const jt_value *>(length.c_str())),
                1);
    }
    for (int i = 0; i < 40; ++i) {
      EXPECT_EQ(jt_add_attribute_value_string(ours, job(), "S", "Value", std::to_string(i).c_str()), 1);
    }
    EXPECT_EQ(jt_delete_attribute_value_string(ours, job(), "S", "Value", "38"), 1);
  }

  CountingAllocator of_ours;
  CountingAllocator of_theirs;
  jt_parser_space *const ours;
  jt_parser_space *const theirs;
  jt_node *root = nullptr;
  jt_node *foreign = nullptr;
};

TEST_F(SessionHeap, AForeignNodeGivesBackWhatItKeepsWithItsSession) {
  change();
  EXPECT_EQ(delete_parser_space(theirs), 1);
  EXPECT_EQ(of_theirs.blocks(), 0U);
  EXPECT_EQ(delete_parser_space(ours), 1);
}

TEST_F(SessionHeap, AForeignNodeOutlivesTheSessionOfItsTree) {
  change();
  EXPECT_EQ(delete_parser_space(ours), 1);
  EXPECT_EQ(of_ours.blocks(), 0U);
  EXPECT_STREQ(foreign->comment, "# a comment\n# a comment\n# a comment\n");
  EXPECT_EQ(delete_parser_space(theirs), 1);
}

TEST_F(SessionHeap, WhatAForeignNodeKeepsComesFromItsOwnSession) {
  const std::size_t blocks = of_ours.blocks();
  const std::size_t their_blocks = of_theirs.blocks();
  EXPECT_EQ(add_comment(ours, foreign, "# a comment\n"), 1);
  const uint32_t number = 999;
  EXPECT_EQ(set_status(ours, foreign, reinterpret_cast<const jt_status *>(&number)), 1);
  EXPECT_EQ(of_ours.blocks(), blocks);
  EXPECT_EQ(of_theirs.blocks(), their_blocks + 2);
  EXPECT_EQ(delete_parser_space(ours), 1);
  EXPECT_EQ(delete_parser_space(theirs), 1);
}

TEST_F(SessionHeap, AForeignNodeMayBeDestroyedThroughEitherSession) {
  change();
  EXPECT_EQ(destroy_node(theirs, foreign), 1);
  EXPECT_EQ(delete_parser_space(ours), 1);
  EXPECT_EQ(delete_parser_space(theirs), 1);
}

TEST_F(SessionHeap, AForeignInvocationIsNamedInItsOwnSession) {
  jt_node *const theirs_root = decoded_root(theirs);
  jt_node *const invocation = invocation_in(theirs_root);
  EXPECT_EQ(add_index_child(ours, root->first_child, invocation), 1);
  for (const char *const name : {"first", "second"}) {
    EXPECT_EQ(jt_force_invocation_name(ours, job(), "S", name), 1);
  }
  EXPECT_STREQ(invocation->name, "second");
  EXPECT_EQ(delete_parser_space(ours), 1);
  EXPECT_EQ(delete_parser_space(theirs), 1);
}

TEST_F(SessionHeap, AValueOfAClientsTypeGoesBackToIt) {
  odd_calls = {};
  jt_node *const from_text = create_value_node(ours, &kOdd, "text");
  EXPECT_NE(from_text, nullptr);
  EXPECT_NE(create_value_ptr_node(ours, &kOdd, from_text->value), nullptr);
  EXPECT_EQ(odd_calls.made, 2);
  EXPECT_EQ(delete_parser_space(ours), 1);
  EXPECT_EQ(odd_calls.released, 2);
  EXPECT_EQ(delete_parser_space(theirs), 1);
}

}  // namespace
}  // namespace jt_test
