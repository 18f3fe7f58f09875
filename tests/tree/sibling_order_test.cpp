// The order of equal children where new ones are put between others again and again, until the numbers in
// between are used up and neighbours are numbered anew: the first in the list is still the one that is found.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tree/child_index.h"
#include "tree/tree_session.h"

namespace jt_test {
namespace {

class SiblingOrder : public TreeTest {
 protected:
  // A search among more than a dozen values makes the index, and equal ones in it have an order.
  SiblingOrder() {
    for (int i = 0; i < 20; ++i) add_value(attribute, "0");
    for (int i = 1; i < 20; ++i) add_value(attribute, std::to_string(i).c_str());
    EXPECT_NE(find("19"), nullptr);
  }
  ~SiblingOrder() override { expect_sound(*space); }

  jt_node *find(const char *text) {
    jt_value *const value = attribute->type->eval(space, std::string(text).data());
    jt_node *const found = jt_core::find_value(*attribute, value);
    attribute->type->kill(space, value);
    return found;
  }

  jt_node *first_of(const char *text) {
    for (jt_node *const child : children_of(attribute)) {
      if (take_text(attribute->type->deval(space, child->value)) == text) return child;
    }
    return nullptr;
  }

  void insert_behind(jt_node *child, const char *text) {
    attribute->cursor = child;
    ASSERT_EQ(add_index_child(space, attribute, create_value_node(space, attribute->type, text)), 1);
  }

  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "numbers");
};

TEST_F(SiblingOrder, HoldsWhereEachIsPutBehindTheSameOne) {
  jt_node *const place = attribute->first_child->next_sibling;
  for (int i = 0; i < 500; ++i) {
    insert_behind(place, i % 2 == 0 ? "7" : "8");
    ASSERT_EQ(find("7"), first_of("7")) << i;
    ASSERT_EQ(find("8"), first_of("8")) << i;
  }
}

TEST_F(SiblingOrder, HoldsWhereEachIsPutBehindTheLastOne) {
  jt_node *place = attribute->first_child;
  for (int i = 0; i < 500; ++i) {
    insert_behind(place, "7");
    place = attribute->cursor;
    ASSERT_EQ(find("7"), first_of("7")) << i;
  }
}

TEST_F(SiblingOrder, HoldsWhereTheOneBehindIsTheLast) {
  jt_node *const place = attribute->first_child->next_sibling;
  for (int i = 0; i < 32; ++i) insert_behind(place, "7");
  while (attribute->last_child != place->next_sibling) destroy_node(space, attribute->last_child);
  for (int i = 0; i < 40; ++i) {
    insert_behind(place, "7");
    ASSERT_EQ(find("7"), place->next_sibling) << i;
  }
  EXPECT_EQ(find("0"), attribute->first_child);
}

// The first one and the one behind it come nearer to the front each time, until its numbers are used up.
TEST_F(SiblingOrder, HoldsWhereTheFirstOneGetsNewValues) {
  jt_node *const first = attribute->first_child;
  for (int i = 0; i < 300; ++i) {
    insert_behind(first, "7");
    jt_core::unindex_child(*attribute, *first);
    jt_core::index_child(*attribute, *first);
    ASSERT_EQ(find("0"), first) << i;
    ASSERT_EQ(find("7"), first->next_sibling) << i;
  }
}

TEST_F(SiblingOrder, HoldsWhileTheFirstOnesGo) {
  jt_node *const place = attribute->first_child;
  for (int i = 0; i < 300; ++i) insert_behind(place, "7");
  for (int i = 0; i < 301; ++i) {
    jt_node *const found = find("7");
    ASSERT_EQ(found, first_of("7")) << i;
    ASSERT_EQ(destroy_node(space, found), 1);
  }
  EXPECT_EQ(find("7"), nullptr);
}

}  // namespace
}  // namespace jt_test
