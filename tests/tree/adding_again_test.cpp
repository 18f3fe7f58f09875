// A child that is added to the parent that it has already. add_child() gives it another place.
// add_unique_child() finds it among the children, and refuses it as a second of its name.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tree/tree_session.h"

namespace jt_test {
namespace {

using Names = std::vector<std::string>;

class AddingAgain : public TreeTest {
 protected:
  ~AddingAgain() override { expect_sound(*space); }

  void expect_refused(jt_node *child) {
    const Nodes before = children_of(parent);
    jt_node *const cursor = parent->cursor;
    EXPECT_EQ(add_unique_child(space, parent, child), 0);
    EXPECT_EQ(status(), JT_SYNTAX_ERROR);
    EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:" +
                                   std::string(child->name) + " ..."});
    EXPECT_EQ(children_of(parent), before);
    EXPECT_EQ(parent->cursor, cursor);
  }

  jt_node *const parent = parent_of({"one", "two", "three"});
};

TEST_F(AddingAgain, TheOnlyOneOfItsNameIsRefusedAndStays) { expect_refused(parent->first_child); }

TEST_F(AddingAgain, TheLastOneIsRefusedAndStays) { expect_refused(parent->last_child); }

TEST_F(AddingAgain, TheOneAtTheCursorIsRefusedAndTheCursorStays) {
  advance_index(space, parent);
  expect_refused(parent->cursor);
}

TEST_F(AddingAgain, TheSecondOfItsNameIsRefusedAndStays) {
  jt_node *const second = add_attribute(parent, "integer", "ONE");
  add_attribute(parent, "integer", "four");
  expect_refused(second);
}

TEST_F(AddingAgain, TheFirstOfManyOfItsNameIsRefusedAndStays) {
  add_attribute(parent, "integer", "ONE");
  expect_refused(parent->first_child);
}

TEST_F(AddingAgain, OneOfManyChildrenIsRefusedAndStays) {
  for (int i = 0; i < 60; ++i) add_attribute(parent, "integer", ("n" + std::to_string(i)).c_str());
  expect_refused(get_child(space, parent, "n42"));
}

TEST_F(AddingAgain, OneWithoutANameMovesToTheEnd) {
  jt_node *const unnamed = add_attribute(parent, "integer", "");
  add_attribute(parent, "integer", "four");
  EXPECT_EQ(add_unique_child(space, parent, unnamed), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three", "four", "-"}));
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(AddingAgain, OneThatNeedNotBeUniqueMovesToTheEnd) {
  EXPECT_EQ(add_child(space, parent, parent->first_child), 1);
  EXPECT_EQ(names_of(parent), (Names{"two", "three", "one"}));
  EXPECT_EQ(messages(), Messages{});
}

}  // namespace
}  // namespace jt_test
