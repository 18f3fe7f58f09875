// A child that is added to the parent that it has already: it changes its place, and is no duplicate of
// itself.
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

  jt_node *const parent = parent_of({"one", "two", "three"});
};

TEST_F(AddingAgain, TheOnlyOneOfItsNameMovesToTheEnd) {
  EXPECT_EQ(add_unique_child(space, parent, parent->first_child), 1);
  EXPECT_EQ(names_of(parent), (Names{"two", "three", "one"}));
  EXPECT_EQ(messages(), Messages{});
}

TEST_F(AddingAgain, TheLastOneStaysTheLast) {
  EXPECT_EQ(add_unique_child(space, parent, parent->last_child), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three"}));
}

TEST_F(AddingAgain, TheSecondOfItsNameIsRefusedAndStays) {
  jt_node *const second = add_attribute(parent, "integer", "ONE");
  add_attribute(parent, "integer", "four");
  EXPECT_EQ(add_unique_child(space, parent, second), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:ONE ..."});
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three", "ONE", "four"}));
}

TEST_F(AddingAgain, TheFirstOfManyOfItsNameMovesBehindThem) {
  add_attribute(parent, "integer", "ONE");
  EXPECT_EQ(add_unique_child(space, parent, parent->first_child), 1);
  EXPECT_EQ(names_of(parent), (Names{"two", "three", "ONE", "one"}));
}

}  // namespace
}  // namespace jt_test
