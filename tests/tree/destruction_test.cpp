// Taking nodes out of a tree of services, invocations, attributes and values: what goes along, which slots
// become free, where cursors move, and what is refused.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tree/child_index.h"
#include "tree/odd_types.h"
#include "tree/tree_session.h"

namespace {

using jt_test::children_of;
using jt_test::exhaust;
using jt_test::Messages;
using jt_test::names_of;
using jt_test::Nodes;
using jt_test::unstart;
using Names = std::vector<std::string>;

class Destruction : public jt_test::TreeTest {
 protected:
  ~Destruction() override { jt_test::expect_sound(*space); }

  // Root, service, two invocations, three attributes in the first, two values in each.
  jt_node *small_tree() {
    jt_node *const root = make_template();
    jt_node *const service = add_service(root, "kmt_svc_scan");
    jt_node *const invocation = add_invocation(service, "one");
    add_invocation(service, "two");
    for (const char *const name : {"a", "b", "c"}) {
      jt_node *const attribute = add_attribute(invocation, "integer", name);
      add_value(attribute, "1");
      add_value(attribute, "2");
    }
    return root;
  }
  // A parent of three with the cursor on the child of that place.
  jt_node *parent_at(std::size_t place) {
    jt_node *const parent = parent_of({"one", "two", "three"});
    for (std::size_t i = 0; i < place; ++i) advance_index(space, parent);
    return parent;
  }
};

// ---- Refusals ----

TEST_F(Destruction, NothingIsDoneToNull) {
  for (jt_parser_space *const each : {space, static_cast<jt_parser_space *>(nullptr)}) {
    EXPECT_EQ(destroy_node(each, nullptr), 0);
    EXPECT_EQ(destroy_children(each, nullptr), 0);
    EXPECT_EQ(destroy_all_nodes(each, nullptr), 0);
    EXPECT_EQ(delete_index_child(each, nullptr), 0);
  }
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Destruction, NothingIsDoneWithoutASession) {
  jt_node *const root = small_tree();
  const std::size_t before = count_alive();
  EXPECT_EQ(destroy_node(nullptr, root), 0);
  EXPECT_EQ(destroy_children(nullptr, root), 0);
  EXPECT_EQ(destroy_all_nodes(nullptr, root), 0);
  EXPECT_EQ(delete_index_child(nullptr, root), 0);
  EXPECT_EQ(count_alive(), before);
}

TEST_F(Destruction, ANodeOfAnotherSessionIsRefusedByBoth) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  const Nodes mine = {make_template(), make_template()};
  for (int i = 0; i < 5; ++i) create_typed_node(other, "template", "theirs", JT_NODE_TEMPLATE, nullptr);
  for (int i = 0; i < 5; ++i) {
    jt_node *const foreign = opaque_to_node(other, bookmark_to_opaque(i));
    EXPECT_EQ(destroy_node(space, foreign), 0) << i;
    EXPECT_EQ(destroy_all_nodes(space, foreign), 0) << i;
    EXPECT_EQ(destroy_children(space, foreign), 0) << i;
    EXPECT_STREQ(foreign->name, "theirs");
    EXPECT_EQ(opaque_to_node(other, bookmark_to_opaque(i)), foreign);
  }
  EXPECT_EQ(at(-100), mine[0]);
  EXPECT_EQ(at(-101), mine[1]);
  EXPECT_EQ(count_alive(), 2U);
  jt_close_parsing_utility(other);
}

TEST_F(Destruction, TheChildAtACursorOfAnotherSessionIsRefused) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  jt_decode_template(other, "[ kmt_svc_scan S ] { } end");
  jt_node *const root = opaque_to_node(other, -100);
  small_tree();
  const std::size_t before = count_alive();
  EXPECT_EQ(delete_index_child(space, root), 0);
  EXPECT_EQ(count_alive(), before);
  EXPECT_STREQ(root->first_child->name, "S");
  jt_close_parsing_utility(other);
}

// ---- destroy_node ----

TEST_F(Destruction, ANodeTakesItsSubtreeAlong) {
  jt_node *const root = small_tree();
  jt_node *const service = root->first_child;
  EXPECT_EQ(count_alive(), 13U);
  EXPECT_EQ(destroy_node(space, service->first_child), 1);
  EXPECT_EQ(count_alive(), 3U);
  EXPECT_EQ(names_of(service), Names{"two"});
  EXPECT_EQ(destroy_node(space, root), 1);
  expect_all_released();
  EXPECT_EQ(space->table.count, 13);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Destruction, SlotsOfASubtreeAreTakenAgainLowestFirst) {
  jt_node *const root = small_tree();
  destroy_node(space, root->first_child->first_child);
  for (const int32_t bookmark : {2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13})
    EXPECT_EQ(make_template()->bookmark, bookmark);
}

TEST_F(Destruction, SiblingsAreLinkedToEachOther) {
  for (const std::size_t which : {0U, 1U, 2U}) {
    jt_node *const parent = parent_of({"one", "two", "three"});
    Nodes children = children_of(parent);
    EXPECT_EQ(destroy_node(space, children[which]), 1);
    children.erase(children.begin() + static_cast<std::ptrdiff_t>(which));
    EXPECT_EQ(children_of(parent), children);
    jt_test::expect_sound(*space);
  }
}

TEST_F(Destruction, ACursorOnTheNodeMovesToTheSiblingBefore) {
  for (const std::size_t place : {1U, 2U}) {
    jt_node *const parent = parent_at(place);
    jt_node *const before = parent->cursor->previous_sibling;
    destroy_node(space, parent->cursor);
    EXPECT_EQ(parent->cursor, before);
  }
}

TEST_F(Destruction, ACursorOnTheFirstMovesToTheNext) {
  jt_node *const parent = parent_at(0);
  jt_node *const next = parent->cursor->next_sibling;
  destroy_node(space, parent->cursor);
  EXPECT_EQ(parent->cursor, next);
  EXPECT_EQ(parent->first_child, next);
}

TEST_F(Destruction, ACursorOnTheOnlyChildIsExhausted) {
  jt_node *const parent = parent_of({"one"});
  destroy_node(space, parent->first_child);
  EXPECT_EQ(parent->cursor, nullptr);
  EXPECT_EQ(parent->first_child, nullptr);
}

TEST_F(Destruction, ACursorElsewhereStays) {
  jt_node *const parent = parent_at(1);
  jt_node *const second = parent->cursor;
  destroy_node(space, parent->first_child);
  EXPECT_EQ(parent->cursor, second);
  destroy_node(space, parent->last_child);
  EXPECT_EQ(parent->cursor, second);
}

TEST_F(Destruction, AnExhaustedOrNotStartedCursorStays) {
  jt_node *const parent = parent_of({"one", "two", "three"});
  exhaust(space, parent);
  destroy_node(space, parent->first_child);
  EXPECT_EQ(parent->cursor, nullptr);
  unstart(parent);
  destroy_node(space, parent->first_child);
  EXPECT_EQ(parent->cursor, jt_core::not_started());
}

TEST_F(Destruction, EverythingANodeOwnsGoesWithIt) {
  jt_test::odd_calls = {};
  jt_node *const invocation = unknown_invocation();
  jt_node *const riddle = add_attribute(invocation, "mystery", std::string(3000, 'n').c_str());
  add_value(riddle, std::string(3000, 'v').c_str());
  add_comment(space, riddle, "# a\n");
  add_comment(space, riddle, std::string(3000, 'c').c_str());
  jt_status *const given = get_status(space, "KMT_STATUS_ERROR");
  set_status(space, riddle, given);
  kill_status(space, given);
  create_value_node(space, &jt_test::kOdd, "odd");
  reopen();
  EXPECT_EQ(jt_test::odd_calls.released, 1);
}

TEST_F(Destruction, AnUnlinkedNodeCanBeDestroyed) {
  jt_node *const child = make("integer", "one", JT_NODE_ATTRIBUTE, scan_invocation());
  EXPECT_EQ(destroy_node(space, child), 1);
}

TEST_F(Destruction, AnyOrderOfNodesIsFine) {
  for (int round = 0; round < 13; ++round) {
    reopen();
    small_tree();
    for (int step = 0; step < 13; ++step) {
      const int32_t bookmark = (round + step * 5) % 13;
      jt_node *const node = space->table.slots[bookmark];
      if (node != jt_core::released_slot()) {
        EXPECT_EQ(destroy_node(space, node), 1);
      }
      jt_test::expect_sound(*space);
    }
    expect_all_released();
  }
}

// ---- destroy_children ----

TEST_F(Destruction, ChildrenGoAndTheirParentStays) {
  jt_node *const root = small_tree();
  jt_node *const invocation = root->first_child->first_child;
  EXPECT_EQ(destroy_children(space, invocation), 1);
  EXPECT_EQ(invocation->first_child, nullptr);
  EXPECT_TRUE(alive(invocation));
  EXPECT_EQ(count_alive(), 4U);
  EXPECT_EQ(jt_test::take_text(index_child_name(space, invocation)), "(none)");
}

TEST_F(Destruction, ChildrenOfAChildlessNodeAreNone) {
  jt_node *const root = make_template();
  EXPECT_EQ(destroy_children(space, root), 1);
  EXPECT_EQ(root->cursor, jt_core::not_started());
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Destruction, AfterItsChildrenAParentTakesNewOnes) {
  for (const std::size_t place : {0U, 1U, 2U}) {
    jt_node *const parent = parent_at(place);
    EXPECT_EQ(destroy_children(space, parent), 1);
    jt_node *const child = add_attribute(parent, "integer", "new");
    EXPECT_EQ(children_of(parent), Nodes{child});
    EXPECT_EQ(parent->cursor, child);
  }
}

TEST_F(Destruction, ValuesOfAnAttributeGo) {
  jt_test::odd_calls = {};
  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "odd");
  attribute->type = &jt_test::kOdd;
  for (int i = 0; i < 100; ++i) add_value(attribute, "some");
  EXPECT_EQ(destroy_children(space, attribute), 1);
  EXPECT_EQ(jt_test::odd_calls.released, 100);
}

// ---- delete_index_child ----

TEST_F(Destruction, DeletingInTheMiddleLeavesTheCursorOnTheOneBefore) {
  jt_node *const parent = parent_at(1);
  EXPECT_EQ(delete_index_child(space, parent), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "three"}));
  EXPECT_STREQ(parent->cursor->name, "one");
}

TEST_F(Destruction, DeletingTheLastLeavesTheCursorOnTheOneBefore) {
  jt_node *const parent = parent_at(2);
  EXPECT_EQ(delete_index_child(space, parent), 1);
  EXPECT_EQ(names_of(parent), (Names{"one", "two"}));
  EXPECT_STREQ(parent->cursor->name, "two");
}

TEST_F(Destruction, DeletingTheFirstLeavesTheCursorOnTheNewFirst) {
  jt_node *const parent = parent_at(0);
  EXPECT_EQ(delete_index_child(space, parent), 1);
  EXPECT_EQ(names_of(parent), (Names{"two", "three"}));
  EXPECT_STREQ(parent->cursor->name, "two");
}

TEST_F(Destruction, DeletingTheOnlyChildExhausts) {
  jt_node *const parent = parent_of({"one"});
  EXPECT_EQ(delete_index_child(space, parent), 1);
  EXPECT_EQ(parent->first_child, nullptr);
  EXPECT_EQ(parent->cursor, nullptr);
  EXPECT_EQ(delete_index_child(space, parent), 0);
}

TEST_F(Destruction, DeletingFromANotStartedParentDeletesTheFirst) {
  jt_node *const parent = parent_of({"one", "two"});
  unstart(parent);
  EXPECT_EQ(delete_index_child(space, parent), 1);
  EXPECT_EQ(names_of(parent), Names{"two"});
  EXPECT_EQ(parent->cursor, parent->first_child);
}

TEST_F(Destruction, DeletingFromAnExhaustedParentDeletesNothing) {
  jt_node *const parent = parent_of({"one", "two"});
  exhaust(space, parent);
  EXPECT_EQ(delete_index_child(space, parent), 0);
  EXPECT_EQ(names_of(parent), (Names{"one", "two"}));
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Destruction, DeletingFromAChildlessParentDeletesNothing) {
  jt_node *const parent = parent_of({});
  EXPECT_EQ(delete_index_child(space, parent), 0);
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Destruction, DeletingTakesTheSubtreeAlong) {
  jt_node *const root = small_tree();
  EXPECT_EQ(delete_index_child(space, root->first_child), 1);
  EXPECT_EQ(count_alive(), 3U);
}

TEST_F(Destruction, DeletingUntilNothingIsLeft) {
  for (const std::size_t place : {0U, 1U, 2U}) {
    jt_node *const parent = parent_at(place);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(delete_index_child(space, parent), 1);
    EXPECT_EQ(parent->first_child, nullptr);
    EXPECT_EQ(delete_index_child(space, parent), 0);
  }
}

// ---- destroy_all_nodes ----

TEST_F(Destruction, AllNodesGoFromAnyOfThem) {
  for (int32_t bookmark = 0; bookmark < 13; ++bookmark) {
    SCOPED_TRACE(bookmark);
    reopen();
    small_tree();
    EXPECT_EQ(destroy_all_nodes(space, space->table.slots[bookmark]), 1);
    expect_all_released();
    EXPECT_EQ(space->table.count, 13);
    EXPECT_EQ(messages(), Messages());
  }
}

TEST_F(Destruction, AllNodesAreThoseOfOneTree) {
  jt_node *const one = small_tree();
  small_tree();
  EXPECT_EQ(destroy_all_nodes(space, one), 1);
  EXPECT_EQ(count_alive(), 13U);
}

TEST_F(Destruction, AllNodesOfALoneNodeAreItself) {
  EXPECT_EQ(destroy_all_nodes(space, make_template()), 1);
  expect_all_released();
}

TEST_F(Destruction, AllNodesOfTheOnlyTemplateAreAllOfTheSession) {
  for (int round = 0; round < 3; ++round) {
    jt_node *const root = small_tree();
    EXPECT_EQ(root->bookmark, 0);
    EXPECT_EQ(destroy_all_nodes(space, root->first_child->first_child), 1);
    expect_all_released();
    EXPECT_EQ(space->table.count, 13);
    jt_test::expect_sound(*space);
  }
  EXPECT_EQ(messages(), Messages());
}

TEST_F(Destruction, TheOnlyTemplateTakesAlongWhateverItOwns) {
  jt_test::odd_calls = {};
  jt_node *const invocation = unknown_invocation();
  jt_node *const riddle = add_attribute(invocation, "mystery", std::string(3000, 'n').c_str());
  add_value(riddle, std::string(3000, 'v').c_str());
  for (int i = 0; i < 100; ++i) add_value(riddle, std::to_string(i).c_str());
  EXPECT_NE(jt_core::find_pending_value(*riddle, "99"), nullptr);
  EXPECT_NE(riddle->index, nullptr);
  add_comment(space, riddle, std::string(3000, 'c').c_str());
  jt_status *const given = get_status(space, "a status of its own");
  set_status(space, riddle, given);
  kill_status(space, given);
  jt_node *const odd = add_attribute(invocation, "enigma", "odd");
  odd->type = &jt_test::kOdd;
  add_value(odd, "some");
  EXPECT_EQ(destroy_all_nodes(space, invocation), 1);
  EXPECT_EQ(jt_test::odd_calls.released, 1);
  expect_all_released();
}

TEST_F(Destruction, AllNodesAreNotThoseOfAnotherTemplate) {
  jt_node *const root = small_tree();
  jt_node *const other = small_tree();
  const Names invocations = {"one", "two"};
  EXPECT_EQ(destroy_all_nodes(space, root), 1);
  EXPECT_EQ(count_alive(), 13U);
  EXPECT_EQ(names_of(other->first_child), invocations);
  jt_node *const again = small_tree();
  EXPECT_EQ(again->bookmark, 0);
  EXPECT_EQ(destroy_all_nodes(space, other), 1);
  EXPECT_EQ(names_of(again->first_child), invocations);
  jt_test::expect_sound(*space);
  EXPECT_EQ(destroy_all_nodes(space, again), 1);
  expect_all_released();
}

TEST_F(Destruction, AllNodesAreNotThoseThatHangNowhere) {
  jt_node *const root = small_tree();
  jt_node *const loose = make("integer", "one", JT_NODE_ATTRIBUTE, root->first_child->first_child);
  EXPECT_EQ(destroy_all_nodes(space, root), 1);
  EXPECT_TRUE(alive(loose));
  EXPECT_EQ(count_alive(), 1U);
  EXPECT_STREQ(loose->name, "one");
  EXPECT_EQ(destroy_all_nodes(space, loose), 1);
  expect_all_released();
}

TEST_F(Destruction, AllNodesAreNotThoseBesideATemplateWithANodeOfAnotherSession) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  const jt_type *const integer = get_type_from_services(space, nullptr, "integer");
  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "a");
  linked(attribute, create_value_node(other, integer, "1"));
  jt_node *const spared = small_tree();
  EXPECT_EQ(destroy_all_nodes(space, attribute), 1);
  EXPECT_EQ(count_alive(), 13U);
  EXPECT_EQ(names_of(spared->first_child), (Names{"one", "two"}));
  EXPECT_EQ(destroy_all_nodes(space, spared), 1);
  expect_all_released();
  jt_close_parsing_utility(other);
}

TEST_F(Destruction, AllNodesAreNotOneThatWentToAnotherSession) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "a");
  add_value(attribute, "1");
  jt_node *const moved = add_value(attribute, "2");
  jt_decode_template(other, "[ kmt_svc_scan S ] { integer a = 1; } end");
  jt_node *const theirs = opaque_to_node(other, -100)->first_child->first_child->first_child;
  EXPECT_EQ(add_child(other, theirs, moved), 1);
  EXPECT_EQ(destroy_all_nodes(space, attribute), 1);
  EXPECT_EQ(count_alive(), 1U);
  EXPECT_TRUE(alive(moved));
  EXPECT_EQ(children_of(theirs).back(), moved);
  EXPECT_EQ(destroy_node(space, moved), 1);
  EXPECT_EQ(children_of(theirs).size(), 1U);
  jt_close_parsing_utility(other);
}

TEST_F(Destruction, ANodeLeavesTheSessionThatItBelongsTo) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  const jt_type *const integer = get_type_from_services(space, nullptr, "integer");
  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "a");
  linked(attribute, create_value_node(other, integer, "1"));
  EXPECT_EQ(opaque_to_node(other, -100), attribute->first_child);
  EXPECT_EQ(destroy_children(space, attribute), 1);
  EXPECT_EQ(count_alive(), 4U);
  EXPECT_EQ(opaque_to_node(other, -100), nullptr);
  EXPECT_EQ(create_value_node(other, integer, "2")->bookmark, 0);
  jt_close_parsing_utility(other);
}

TEST_F(Destruction, WhatAKillMakesLivesOn) {
  static int32_t made;
  static jt_type maker = jt_test::kOdd;
  maker.kill = [](jt_parser_space *session, jt_value *value) -> int32_t {
    made = jt_create_template(session);
    return er_free(value);
  };
  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "odd");
  attribute->type = &maker;
  add_value(attribute, "some");
  EXPECT_EQ(destroy_all_nodes(space, attribute), 1);
  EXPECT_EQ(count_alive(), 1U);
  EXPECT_STREQ(opaque_to_node(space, made)->name, "template");
}

TEST_F(Destruction, ASmallTemplateGoesLikeTheLargeOneBeforeIt) {
  jt_node *const large = scan_invocation();
  for (int i = 0; i < 2000; ++i) add_attribute(large, "integer", std::to_string(i).c_str());
  EXPECT_EQ(destroy_all_nodes(space, large), 1);
  expect_all_released();
  for (int round = 0; round < 2; ++round) {
    jt_node *const small = small_tree();
    EXPECT_EQ(small->bookmark, 0);
    EXPECT_EQ(destroy_all_nodes(space, small), 1);
    expect_all_released();
  }
  EXPECT_EQ(space->table.count, 2003);
}

TEST_F(Destruction, AllNodesAreThoseOfOneSession) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  const jt_type *const integer = get_type_from_services(space, nullptr, "integer");
  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "a");
  jt_node *const first = linked(attribute, create_value_node(other, integer, "1"));
  add_value(attribute, "2");
  jt_node *const last = linked(attribute, create_value_node(other, integer, "3"));
  EXPECT_EQ(destroy_all_nodes(space, attribute), 1);
  expect_all_released();
  EXPECT_EQ(opaque_to_node(other, -100), first);
  EXPECT_EQ(opaque_to_node(other, -101), last);
  jt_close_parsing_utility(other);
}

TEST_F(Destruction, AllNodesAreNotThoseAboveInAnotherSession) {
  jt_parser_space *const other = jt_open_parsing_utility("other");
  jt_decode_template(other, "[ kmt_svc_scan S ] { integer a = 1; } end");
  jt_node *const attribute = opaque_to_node(other, -100)->first_child->first_child->first_child;
  jt_node *const value = linked(attribute, create_value_node(space, attribute->type, "2"));
  EXPECT_EQ(destroy_all_nodes(space, value), 1);
  expect_all_released();
  EXPECT_STREQ(attribute->name, "a");
  jt_close_parsing_utility(other);
}

TEST_F(Destruction, AllClientValuesAreReleasedOnce) {
  jt_test::odd_calls = {};
  jt_node *const attribute = add_attribute(scan_invocation(), "integer", "odd");
  attribute->type = &jt_test::kOdd;
  for (int i = 0; i < 10; ++i) add_value(attribute, "some");
  EXPECT_EQ(destroy_all_nodes(space, attribute), 1);
  EXPECT_EQ(jt_test::odd_calls.released, 10);
  expect_all_released();
}

}  // namespace
