// A child that is added to the parent that it has already. Where names are to be unique it is a second of its
// own name and stays where it is; a child without a name moves to the end.
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

TEST_F(AddingAgain, TheOnlyOneOfItsNameIsRefusedAndStays) {
  EXPECT_EQ(add_unique_child(space, parent, parent->first_child), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:one ..."});
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three"}));
}

TEST_F(AddingAgain, TheLastOneIsRefusedToo) {
  EXPECT_EQ(add_unique_child(space, parent, parent->last_child), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:three ..."});
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three"}));
}

TEST_F(AddingAgain, TheSecondOfItsNameIsRefusedAndStays) {
  jt_node *const second = add_attribute(parent, "integer", "ONE");
  add_attribute(parent, "integer", "four");
  EXPECT_EQ(add_unique_child(space, parent, second), 0);
  EXPECT_EQ(messages(), Messages{"SYNTAX ERROR: Trying to save multiple definitions for:ONE ..."});
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three", "ONE", "four"}));
}

TEST_F(AddingAgain, TheFirstOfManyOfItsNameIsRefusedAndStays) {
  add_attribute(parent, "integer", "ONE");
  EXPECT_EQ(add_unique_child(space, parent, parent->first_child), 0);
  EXPECT_EQ(names_of(parent), (Names{"one", "two", "three", "ONE"}));
}

}  // namespace
}  // namespace jt_test
