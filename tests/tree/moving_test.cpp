// Linking a node that is linked already: it leaves its old place once the new one has accepted it, and not
// before.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tree/tree_session.h"

namespace {

using jt_test::children_of;
using jt_test::names_of;
using jt_test::Nodes;
using Names = std::vector<std::string>;

using Add = int32_t (*)(jt_parser_space *, jt_node *, jt_node *);
constexpr Add kAdds[] = {add_child, add_unique_child, add_index_child};

class Moving : public jt_test::TreeTest {
 protected:
  ~Moving() override { jt_test::expect_sound(*space); }
};

TEST_F(Moving, ANodeMovesToAnotherParent) {
  for (const Add add : kAdds) {
    for (const std::size_t which : {0U, 1U, 2U}) {
      jt_node *const from = parent_of({"one", "two", "three"});
      jt_node *const to = parent_of({"four"});
      jt_node *const moved = children_of(from)[which];
      EXPECT_EQ(add(space, to, moved), 1);
      EXPECT_EQ(moved->parent, to);
      EXPECT_EQ(children_of(from).size(), 2U);
      EXPECT_EQ(names_of(to), (Names{"four", moved->name}));
      jt_test::expect_sound(*space);
    }
  }
}

TEST_F(Moving, TheOldParentsCursorDoesNotFollow) {
  for (const std::size_t which : {0U, 1U, 2U}) {
    jt_node *const from = parent_of({"one", "two", "three"});
    jt_node *const to = parent_of({"four"});
    for (std::size_t i = 0; i < which; ++i) advance_index(space, from);
    jt_node *const moved = from->cursor;
    EXPECT_EQ(moved, children_of(from)[which]);
    EXPECT_EQ(add_child(space, to, moved), 1);
    EXPECT_NE(from->cursor, moved);
    jt_test::expect_sound(*space);
  }
}

TEST_F(Moving, TheOldParentMayEndUpEmpty) {
  jt_node *const from = parent_of({"one"});
  jt_node *const to = parent_of({});
  EXPECT_EQ(add_child(space, to, from->first_child), 1);
  EXPECT_EQ(from->first_child, nullptr);
  EXPECT_EQ(index_child_name(space, from), nullptr);
  EXPECT_EQ(names_of(to), Names{"one"});
}

TEST_F(Moving, TheOldParentDoesNotTakeItDown) {
  jt_node *const from = parent_of({"one", "two"});
  jt_node *const to = parent_of({});
  jt_node *const moved = from->first_child;
  EXPECT_EQ(add_child(space, to, moved), 1);
  EXPECT_EQ(destroy_node(space, from), 1);
  EXPECT_TRUE(alive(moved));
  EXPECT_EQ(names_of(to), Names{"one"});
}

TEST_F(Moving, WithItsSubtree) {
  jt_node *const from = parent_of({"one"});
  jt_node *const one = from->first_child;
  add_value(one, "1");
  add_value(one, "2");
  EXPECT_EQ(add_child(space, parent_of({}), one), 1);
  EXPECT_EQ(children_of(one).size(), 2U);
}

TEST_F(Moving, AddingAgainMovesToTheEnd) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  EXPECT_EQ(add_child(space, parent, parent->first_child), 1);
  EXPECT_EQ(names_of(parent), (Names{"two", "three", "one"}));
  EXPECT_EQ(add_child(space, parent, parent->last_child), 1);
  EXPECT_EQ(names_of(parent), (Names{"two", "three", "one"}));
}

TEST_F(Moving, AddingTheOnlyChildAgainKeepsIt) {
  for (const Add add : {add_child, add_index_child}) {
    jt_node *const parent = parent_of({"one"});
    jt_node *const child = parent->first_child;
    EXPECT_EQ(add(space, parent, child), 1);
    EXPECT_EQ(children_of(parent), Nodes{child});
    EXPECT_EQ(parent->cursor, child);
  }
}

TEST_F(Moving, AddingTheCursorsChildAtTheCursorKeepsTheListWhole) {
  for (const std::size_t which : {0U, 1U, 2U}) {
    jt_node *const parent = parent_of({"one", "two", "three"});
    for (std::size_t i = 0; i < which; ++i) advance_index(space, parent);
    jt_node *const moved = parent->cursor;
    EXPECT_EQ(add_index_child(space, parent, moved), 1);
    EXPECT_EQ(parent->cursor, moved);
    EXPECT_EQ(children_of(parent).size(), 3U);
    jt_test::expect_sound(*space);
  }
}

TEST_F(Moving, ARefusedTypeLeavesItWhereItWas) {
  for (const Add add : kAdds) {
    jt_node *const from = scan_invocation();
    add_attribute(from, "integer", "one");
    jt_node *const size = add_attribute(from, "enum_mediasize", "size");
    jt_node *const print = add_invocation(add_service(make_template(), "kmt_svc_print"));
    EXPECT_EQ(add(space, print, size), 0);
    EXPECT_EQ(names_of(from), (Names{"one", "size"}));
    EXPECT_EQ(size->parent, from);
    EXPECT_EQ(print->first_child, nullptr);
  }
}

TEST_F(Moving, ADuplicateNameLeavesItWhereItWas) {
  jt_node *const from = parent_of({"one", "two"});
  jt_node *const to = parent_of({"ONE"});
  EXPECT_EQ(add_unique_child(space, to, from->first_child), 0);
  EXPECT_EQ(names_of(from), (Names{"one", "two"}));
  EXPECT_EQ(from->cursor, from->first_child);
  EXPECT_EQ(names_of(to), Names{"ONE"});
}

TEST_F(Moving, ANullParentLeavesItWhereItWas) {
  jt_node *const from = parent_of({"one", "two"});
  for (const Add add : kAdds) EXPECT_EQ(add(space, nullptr, from->first_child), 0);
  EXPECT_EQ(names_of(from), (Names{"one", "two"}));
}

}  // namespace
