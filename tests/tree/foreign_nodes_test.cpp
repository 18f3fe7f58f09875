// Nodes of one session in a tree of another, which only the exported internals can bring about: whichever goes
// first, the tree or either session, leaves no link to what has gone.
#include <gtest/gtest.h>

#include "tree/tree_session.h"

namespace jt_test {
namespace {

class ForeignNodes : public TreeTest {
 protected:
  ForeignNodes() {
    jt_node *const root = create_typed_node(other, "template", "template", JT_NODE_TEMPLATE, nullptr);
    jt_node *const service = create_typed_node(other, "kmt_svc_scan", "kmt_svc_scan", JT_NODE_SERVICE, root);
    foreign = create_typed_node(other, "kmt_svc_scan", "theirs", JT_NODE_INVOCATION, service);
    add_invocation(ours, "before");
    EXPECT_EQ(add_child(space, ours, foreign), 1);
    add_invocation(ours, "behind");
  }
  ~ForeignNodes() override {
    if (other != nullptr) delete_parser_space(other);
  }

  void expect_on_its_own() {
    EXPECT_EQ(foreign->parent, nullptr);
    EXPECT_EQ(foreign->previous_sibling, nullptr);
    EXPECT_EQ(foreign->next_sibling, nullptr);
    EXPECT_EQ(destroy_node(other, foreign), 1);
  }

  jt_parser_space *other = create_parser_space("other");
  jt_node *const ours = add_service(make_template(), "kmt_svc_scan");
  jt_node *foreign = nullptr;
};

TEST_F(ForeignNodes, OutliveTheTemplateThatTheyHangIn) {
  EXPECT_EQ(destroy_all_nodes(space, ours), 1);
  expect_on_its_own();
}

TEST_F(ForeignNodes, OutliveTheSessionOfTheirParent) {
  EXPECT_EQ(delete_parser_space(space), 1);
  space = create_parser_space("again");
  expect_on_its_own();
}

TEST_F(ForeignNodes, LeaveTheTreeWithTheirSession) {
  EXPECT_EQ(delete_parser_space(other), 1);
  other = nullptr;
  EXPECT_EQ(names_of(ours), (std::vector<std::string>{"before", "behind"}));
  expect_sound(*space);
}

TEST_F(ForeignNodes, LeaveTheTreeWithTheirTemplate) {
  EXPECT_EQ(destroy_all_nodes(other, foreign), 1);
  EXPECT_EQ(names_of(ours), (std::vector<std::string>{"before", "behind"}));
  expect_sound(*space);
}

TEST_F(ForeignNodes, AreFoundByNameAsLongAsTheyHangThere) {
  for (int i = 0; i < 40; ++i) add_invocation(ours, ("more" + std::to_string(i)).c_str());
  EXPECT_EQ(get_child(space, ours, "THEIRS"), foreign);
  EXPECT_EQ(delete_parser_space(other), 1);
  other = nullptr;
  EXPECT_EQ(get_child(space, ours, "theirs"), nullptr);
  EXPECT_NE(get_child(space, ours, "more39"), nullptr);
}

}  // namespace
}  // namespace jt_test
