// Values among named children: an attribute that holds both is searched by name and by value, also where its
// values are of a type that has no hash and a table of its children cannot hold them.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tree/child_index.h"
#include "tree/tree_session.h"

namespace jt_test {
namespace {

constexpr int kMany = 40;

// Attributes named "header" hold attributes of the base types.
class ValueLookup : public TreeTest {
 protected:
  ValueLookup() : holder(add_attribute(scan_invocation(), "real", "header")) {
    for (int i = 0; i < kMany; ++i) add_attribute(holder, "integer", ("name" + std::to_string(i)).c_str());
    EXPECT_EQ(find("NAME39"), holder->last_child);
    EXPECT_NE(holder->index, nullptr) << "the names are in a table from here on";
  }
  jt_node *find(const char *name) { return get_child(space, holder, name); }
  jt_node *find(float number) {
    return jt_core::find_value(*holder, reinterpret_cast<const jt_value *>(&number));
  }

  jt_node *holder;
};

TEST_F(ValueLookup, FindsNoRealWhereThereAreOnlyNames) {
  EXPECT_EQ(find(1.5F), nullptr);
  EXPECT_NE(find("name20"), nullptr);
}

TEST_F(ValueLookup, FindsARealBehindTheNames) {
  jt_node *const value = add_value(holder, "1.5");
  EXPECT_EQ(find(1.5F), value);
  EXPECT_EQ(find(2.5F), nullptr);
  EXPECT_EQ(find("name39"), value->previous_sibling);
  EXPECT_EQ(find("name0"), holder->first_child);
}

TEST_F(ValueLookup, FindsTheFirstOfEqualReals) {
  jt_node *const first = add_value(holder, "1.5");
  jt_node *const second = add_value(holder, "1.50");
  EXPECT_EQ(find(1.5F), first);
  EXPECT_EQ(destroy_node(space, first), 1);
  EXPECT_EQ(find(1.5F), second);
}

// What is no number is equal to every real, and has no place in the table.
TEST_F(ValueLookup, FindsTheFirstRealWhereNoNumberIsSought) {
  jt_node *const first = add_value(holder, "1.5");
  add_value(holder, "2.5");
  EXPECT_EQ(find(std::numeric_limits<float>::quiet_NaN()), first);
  EXPECT_NE(holder->index, nullptr) << "the table stays";
}

TEST_F(ValueLookup, FindsNamesAgainWhenTheRealsAreGone) {
  EXPECT_EQ(destroy_node(space, add_value(holder, "1.5")), 1);
  EXPECT_EQ(find("name39"), holder->last_child);
  EXPECT_EQ(find("name39"), holder->last_child);
  EXPECT_EQ(find(1.5F), nullptr);
}

}  // namespace
}  // namespace jt_test
