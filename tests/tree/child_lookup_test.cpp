// Finding a child by name: the first of that name in the order of the list, letters folded, however many
// children there are and however they came and went.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "base/memory.h"
#include "support/upper_case.h"
#include "tree/links.h"
#include "tree/tree_session.h"

namespace {

using jt_test::children_of;
using jt_test::Messages;
using jt_test::Nodes;
using jt_test::upper_case;

class ChildLookup : public jt_test::TreeTest {
 protected:
  jt_node *find(jt_node *parent, const std::string &name) { return get_child(space, parent, name.c_str()); }
  jt_node *append(jt_node *parent, const std::string &name) {
    return add_attribute(parent, "integer", name.c_str());
  }
  // What a walk from the first child finds.
  static jt_node *walk(const jt_node *parent, const std::string &name) {
    for (jt_node *const child : children_of(parent)) {
      if (child->name != nullptr && upper_case(child->name) == upper_case(name)) return child;
    }
    return nullptr;
  }
};

TEST_F(ChildLookup, FindsAChildByItsName) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  const Nodes children = children_of(parent);
  EXPECT_EQ(find(parent, "one"), children[0]);
  EXPECT_EQ(find(parent, "two"), children[1]);
  EXPECT_EQ(find(parent, "three"), children[2]);
  EXPECT_EQ(find(parent, "four"), nullptr);
  EXPECT_EQ(find(parent, "on"), nullptr);
  EXPECT_EQ(find(parent, "ones"), nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ChildLookup, LettersFold) {
  jt_node *const parent = parent_of({"MyScan"});
  for (const char *const name : {"MyScan", "myscan", "MYSCAN", "mYsCAN"})
    EXPECT_EQ(find(parent, name), parent->first_child) << name;
}

TEST_F(ChildLookup, OnlyLettersAToZFold) {
  jt_node *const parent = parent_of({"a[", "\xE4"});
  EXPECT_EQ(find(parent, "A["), parent->first_child);
  EXPECT_EQ(find(parent, "a{"), nullptr);
  EXPECT_EQ(find(parent, "\xC4"), nullptr);
  EXPECT_EQ(find(parent, "\xE4"), parent->last_child);
}

TEST_F(ChildLookup, TheFirstOfThatNameIsFound) {
  jt_node *const parent = parent_of({"one", "two", "TWO", "two"});
  EXPECT_EQ(find(parent, "two"), children_of(parent)[1]);
  EXPECT_EQ(find(parent, "TWO"), children_of(parent)[1]);
}

TEST_F(ChildLookup, TheNextOfThatNameIsFoundWhenTheFirstIsGone) {
  jt_node *const parent = parent_of({"one", "two", "TWO"});
  const Nodes children = children_of(parent);
  EXPECT_EQ(destroy_node(space, children[1]), 1);
  EXPECT_EQ(find(parent, "two"), children[2]);
  EXPECT_EQ(destroy_node(space, children[2]), 1);
  EXPECT_EQ(find(parent, "two"), nullptr);
}

TEST_F(ChildLookup, ChildrenWithoutNamesAreNeverFound) {
  jt_node *const parent = parent_of({"", "one", ""});
  EXPECT_EQ(find(parent, ""), nullptr);
  EXPECT_EQ(find(parent, "one"), children_of(parent)[1]);
}

TEST_F(ChildLookup, FindsNothingWithNulls) {
  jt_node *const parent = parent_of({"one", ""});
  EXPECT_EQ(get_child(nullptr, parent, "one"), nullptr);
  EXPECT_EQ(get_child(space, nullptr, "one"), nullptr);
  EXPECT_EQ(get_child(space, parent, nullptr), nullptr);
  EXPECT_EQ(get_child(nullptr, nullptr, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ChildLookup, FindsNothingWithoutChildren) {
  EXPECT_EQ(find(make_template(), "one"), nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ChildLookup, FindsNothingUnderAValue) {
  jt_node *const value = add_value(add_attribute(scan_invocation(), "integer", "copies"), "1");
  EXPECT_EQ(find(value, "copies"), nullptr);
  EXPECT_EQ(get_child(space, value, nullptr), nullptr);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(ChildLookup, ValuesAreNotFoundByTheirTexts) {
  jt_node *const known = add_attribute(scan_invocation(), "string", "known");
  jt_node *const unknown = add_attribute(scan_invocation(), "mystery", "unknown");
  for (jt_node *const attribute : {known, unknown}) {
    for (int i = 0; i < 50; ++i) add_value(attribute, std::to_string(i).c_str());
    add_value(attribute, "");
    for (const char *const text : {"49", "49", "0", "25", "", ""})
      EXPECT_EQ(find(attribute, text), nullptr) << text;
  }
}

TEST_F(ChildLookup, AnAttributeAmongValuesIsFoundByItsName) {
  jt_node *const holder = add_attribute(make_header(), "mystery", "header");
  for (int i = 0; i < 50; ++i) add_value(holder, ("v" + std::to_string(i)).c_str());
  jt_node *const child = append(holder, "V7");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(find(holder, "v7"), child);
    EXPECT_EQ(find(holder, "v8"), nullptr);
  }
}

TEST_F(ChildLookup, LooksAtChildrenOnlyNotAtTheirs) {
  jt_node *const invocation = parent_of({"one"});
  EXPECT_EQ(find(invocation->parent->parent, "one"), nullptr);
  EXPECT_EQ(find(invocation->parent->parent, "kmt_svc_scan"), invocation->parent);
}

TEST_F(ChildLookup, DoesNotMoveTheCursor) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  find(parent, "three");
  EXPECT_EQ(parent->cursor, parent->first_child);
}

// ---- Long lists ----

TEST_F(ChildLookup, FindsEachOfThousands) {
  jt_node *const parent = scan_invocation();
  Nodes children;
  for (int i = 0; i < 5000; ++i) {
    children.push_back(append(parent, "Child" + std::to_string(i)));
    ASSERT_EQ(find(parent, "cHILD" + std::to_string(i / 2)), children[static_cast<std::size_t>(i / 2)]);
  }
  for (int i = 0; i < 5000; ++i)
    ASSERT_EQ(find(parent, "CHILD" + std::to_string(i)), children[static_cast<std::size_t>(i)]);
  EXPECT_EQ(find(parent, "child5000"), nullptr);
  EXPECT_EQ(find(parent, ""), nullptr);
}

TEST_F(ChildLookup, UniquenessHoldsAmongThousands) {
  jt_node *const parent = scan_invocation();
  for (int i = 0; i < 3000; ++i) {
    const std::string name = "child" + std::to_string(i);
    ASSERT_EQ(add_unique_child(space, parent, make("integer", name.c_str(), JT_NODE_ATTRIBUTE, parent)), 1);
  }
  for (int i = 0; i < 3000; i += 100) {
    const std::string name = "CHILD" + std::to_string(i);
    jt_node *const child = make("integer", name.c_str(), JT_NODE_ATTRIBUTE, parent);
    ASSERT_EQ(add_unique_child(space, parent, child), 0);
    ASSERT_EQ(destroy_node(space, child), 1);
  }
  EXPECT_EQ(children_of(parent).size(), 3000U);
}

TEST_F(ChildLookup, FindsWhatIsLeftAfterDeletions) {
  jt_node *const parent = scan_invocation();
  Nodes children;
  for (int i = 0; i < 3000; ++i) children.push_back(append(parent, "c" + std::to_string(i)));
  find(parent, "c2999");
  for (std::size_t i = 0; i < 3000; i += 3) destroy_node(space, children[i]);
  for (std::size_t i = 0; i < 3000; ++i)
    ASSERT_EQ(find(parent, "C" + std::to_string(i)), i % 3 == 0 ? nullptr : children[i]);
  EXPECT_EQ(destroy_children(space, parent), 1);
  EXPECT_EQ(find(parent, "c1"), nullptr);
  EXPECT_EQ(find(parent, "c1"), nullptr);
  jt_node *const added = append(parent, "c1");
  EXPECT_EQ(find(parent, "c1"), added);
}

TEST_F(ChildLookup, OfThousandsOfOneNameTheFirstIsFoundUntilTheLastIsGone) {
  jt_node *const parent = scan_invocation();
  for (int i = 0; i < 20; ++i) append(parent, "other" + std::to_string(i));
  find(parent, "nobody");
  find(parent, "other19");
  Nodes same;
  for (int i = 0; i < 500; ++i) same.push_back(append(parent, i % 2 == 0 ? "same" : "SAME"));
  for (jt_node *const child : same) {
    ASSERT_EQ(find(parent, "Same"), child);
    ASSERT_EQ(destroy_node(space, child), 1);
  }
  EXPECT_EQ(find(parent, "same"), nullptr);
}

TEST_F(ChildLookup, ADuplicateInsertedInFrontIsTheFirst) {
  jt_node *const parent = scan_invocation();
  for (int i = 0; i < 100; ++i) append(parent, "c" + std::to_string(i));
  ASSERT_EQ(find(parent, "c99"), parent->last_child);
  reset_index(space, parent);
  jt_node *const child = make("integer", "C99", JT_NODE_ATTRIBUTE, parent);
  ASSERT_EQ(add_index_child(space, parent, child), 1);
  EXPECT_EQ(find(parent, "c99"), child);
  EXPECT_EQ(add_child(space, parent, child), 1);
  EXPECT_NE(find(parent, "c99"), child);
}

TEST_F(ChildLookup, AMovedChildIsFoundInItsNewPlaceOnly) {
  jt_node *const from = scan_invocation();
  jt_node *const to = scan_invocation();
  for (int i = 0; i < 100; ++i) append(i % 2 == 0 ? from : to, "c" + std::to_string(i));
  find(from, "c98");
  find(to, "c99");
  jt_node *const moved = find(from, "c42");
  EXPECT_EQ(add_child(space, to, moved), 1);
  EXPECT_EQ(find(from, "c42"), nullptr);
  EXPECT_EQ(find(to, "c42"), moved);
}

TEST_F(ChildLookup, ARenamedChildIsFoundByItsNewNameOnly) {
  jt_node *const parent = scan_invocation();
  for (int i = 0; i < 100; ++i) append(parent, "c" + std::to_string(i));
  jt_node *const child = find(parent, "c50");
  jt_core::rename(*child, jt_core::copy_plain_text("renamed"));
  EXPECT_EQ(find(parent, "c50"), nullptr);
  EXPECT_EQ(find(parent, "Renamed"), child);
  jt_core::rename(*child, nullptr);
  EXPECT_EQ(find(parent, "renamed"), nullptr);
  jt_core::rename(*child, jt_core::copy_plain_text("c99"));
  EXPECT_EQ(find(parent, "c99"), child);
}

// Every edit that a list of children knows, in no order: a look-up gives what a walk gives.
TEST_F(ChildLookup, GivesWhatAWalkGives) {
  std::mt19937 random(4711);
  jt_node *const parents[] = {scan_invocation(), scan_invocation()};
  const auto some_name = [&] { return "n" + std::to_string(random() % 60); };
  for (int step = 0; step < 20000; ++step) {
    jt_node *const parent = parents[random() % 2];
    const Nodes children = children_of(parent);
    jt_node *const some = children.empty() ? nullptr : children[random() % children.size()];
    const auto action = random() % 8;
    const bool shrinking = children.size() > 150;
    if (some == nullptr || (action < 3 && !shrinking)) {
      append(parent, action == 0 && random() % 4 == 0 ? "" : some_name());
    } else if (action == 3 && !shrinking) {
      jt_node *const child = make("integer", some_name().c_str(), JT_NODE_ATTRIBUTE, parent);
      for (auto moves = random() % 5; moves > 0; --moves) advance_index(space, parent);
      ASSERT_EQ(add_index_child(space, parent, child), 1);
    } else if (action == 4) {
      ASSERT_EQ(add_child(space, parents[random() % 2], some), 1);
    } else if (action == 5) {
      jt_core::rename(*some, random() % 8 == 0 ? nullptr : jt_core::copy_plain_text(some_name()));
    } else {
      ASSERT_EQ(destroy_node(space, some), 1);
    }
    const std::string name = some_name();
    for (jt_node *const each : parents) ASSERT_EQ(find(each, upper_case(name)), walk(each, name)) << step;
  }
  jt_test::expect_sound(*space);
}

}  // namespace
