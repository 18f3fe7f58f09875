// Root, header, header attributes and section are linked in a ring rather than a tree. Whatever is destroyed
// first, no link is left to a node that is gone, and nothing is destroyed twice.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "tree/tree_session.h"

namespace {

using jt_test::Messages;
using jt_test::Nodes;

enum Member : std::size_t { kRoot, kHeader, kVersion, kEncoding, kIdentifier, kSection, kMembers };

using Ring = std::array<jt_node *, kMembers>;

class HeaderRing : public jt_test::TreeTest {
 protected:
  // One template of each form, by the class of its header.
  static std::vector<std::string> forms() {
    return {jt_test::question_template(), jt_test::plain_template(), jt_test::exclaim_template()};
  }

  Ring decode(const std::string &text) {
    reopen();
    jt_node *const root = at(jt_decode_template(space, text.c_str()));
    Ring ring{root, root->previous_sibling};
    jt_node *attribute = ring[kHeader]->parent;
    for (const Member member : {kVersion, kEncoding, kIdentifier}) {
      ring[member] = attribute;
      attribute = attribute->next_sibling;
    }
    ring[kSection] = root->next_sibling;
    forget_messages();
    return ring;
  }
  bool destroy_if_alive(jt_node *node) {
    if (node == nullptr || !alive(node)) return false;
    EXPECT_EQ(destroy_node(space, node), 1);
    EXPECT_FALSE(alive(node));
    jt_test::expect_sound(*space);
    return true;
  }
};

TEST_F(HeaderRing, HasTheShapeOfADecodedTemplate) {
  const int32_t classes[] = {6, 7, 8};
  for (std::size_t form = 0; form < 3; ++form) {
    SCOPED_TRACE(form);
    const Ring ring = decode(forms()[form]);
    EXPECT_EQ(ring[kRoot]->node_class, 0);
    EXPECT_STREQ(ring[kRoot]->name, "template");
    EXPECT_STREQ(ring[kRoot]->type->name, "template");
    EXPECT_EQ(ring[kRoot]->parent, nullptr);
    EXPECT_EQ(ring[kHeader]->node_class, classes[form]);
    EXPECT_STREQ(ring[kHeader]->name, "header");
    EXPECT_STREQ(ring[kHeader]->type->name, "sil_header");
    EXPECT_STREQ(ring[kHeader]->first_child->name, "note");
    EXPECT_EQ(ring[kSection] != nullptr, classes[form] != 7);
    jt_test::expect_sound(*space);
  }
}

TEST_F(HeaderRing, TheHeaderAttributesAreChainedAndPointBack) {
  const Ring ring = decode(jt_test::plain_template());
  EXPECT_STREQ(ring[kVersion]->name, "LanguageVersion");
  EXPECT_STREQ(ring[kEncoding]->name, "CharacterEncoding");
  EXPECT_STREQ(ring[kIdentifier]->name, "InteractionID");
  EXPECT_STREQ(reinterpret_cast<const char *>(ring[kVersion]->value), "4.2.00");
  EXPECT_STREQ(reinterpret_cast<const char *>(ring[kEncoding]->value), "ASCII");
  EXPECT_STREQ(reinterpret_cast<const char *>(ring[kIdentifier]->value), "id-1");
  for (const Member member : {kVersion, kEncoding, kIdentifier}) {
    EXPECT_EQ(ring[member]->node_class, 3);
    EXPECT_EQ(ring[member]->first_child, ring[kHeader]);
    EXPECT_STREQ(ring[member]->type->name, "string");
  }
  EXPECT_EQ(ring[kVersion]->previous_sibling, nullptr);
  EXPECT_EQ(ring[kEncoding]->previous_sibling, ring[kVersion]);
  EXPECT_EQ(ring[kIdentifier]->previous_sibling, ring[kEncoding]);
  EXPECT_EQ(ring[kIdentifier]->next_sibling, nullptr);
}

TEST_F(HeaderRing, TheSectionIsATemplateBesideTheRoot) {
  const Ring ring = decode(jt_test::question_template());
  EXPECT_EQ(ring[kSection]->node_class, 0);
  EXPECT_STREQ(ring[kSection]->name, "header");
  EXPECT_STREQ(ring[kSection]->first_child->name, "MyScan");
  EXPECT_EQ(ring[kSection]->parent, nullptr);
}

TEST_F(HeaderRing, AllNodesGoFromAnyMember) {
  for (const std::string &form : forms()) {
    for (std::size_t member = 0; member < kMembers; ++member) {
      SCOPED_TRACE(form + std::to_string(member));
      const Ring ring = decode(form);
      if (ring[member] == nullptr) continue;
      const int32_t count = space->table.count;
      EXPECT_EQ(destroy_all_nodes(space, ring[member]), 1);
      expect_all_released();
      EXPECT_EQ(space->table.count, count);
      EXPECT_EQ(messages(), Messages());
    }
  }
}

TEST_F(HeaderRing, AllNodesGoFromEveryNodeAtAll) {
  for (const std::string &form : forms()) {
    decode(form);
    const int32_t count = space->table.count;
    for (int32_t bookmark = 0; bookmark < count; ++bookmark) {
      SCOPED_TRACE(bookmark);
      decode(form);
      EXPECT_EQ(destroy_all_nodes(space, space->table.slots[bookmark]), 1);
      expect_all_released();
    }
  }
}

TEST_F(HeaderRing, ANewTemplateTakesTheSlotsOfADestroyedOne) {
  for (const std::string &form : forms()) {
    const Ring ring = decode(form);
    const int32_t count = space->table.count;
    destroy_all_nodes(space, ring[kHeader]);
    EXPECT_EQ(jt_decode_template(space, form.c_str()), -100);
    EXPECT_EQ(space->table.count, count);
  }
}

TEST_F(HeaderRing, TheRootGoesAloneWithItsServices) {
  const Ring ring = decode(jt_test::question_template());
  EXPECT_EQ(destroy_node(space, ring[kRoot]), 1);
  for (const Member member : {kHeader, kVersion, kEncoding, kIdentifier, kSection})
    EXPECT_TRUE(alive(ring[member])) << member;
  EXPECT_STREQ(ring[kSection]->first_child->name, "MyScan");
  jt_test::expect_sound(*space);
}

TEST_F(HeaderRing, TheSectionGoesAloneWithItsServices) {
  const Ring ring = decode(jt_test::question_template());
  EXPECT_EQ(destroy_node(space, ring[kSection]), 1);
  EXPECT_EQ(ring[kRoot]->next_sibling, nullptr);
  EXPECT_EQ(ring[kRoot]->previous_sibling, ring[kHeader]);
  EXPECT_STREQ(ring[kRoot]->first_child->name, "MyScan");
  jt_test::expect_sound(*space);
}

TEST_F(HeaderRing, TheHeaderGoesWithoutTheTemplate) {
  const Ring ring = decode(jt_test::question_template());
  EXPECT_EQ(destroy_node(space, ring[kHeader]), 1);
  EXPECT_EQ(ring[kRoot]->previous_sibling, nullptr);
  EXPECT_EQ(ring[kRoot]->next_sibling, ring[kSection]);
  for (const Member member : {kRoot, kVersion, kEncoding, kIdentifier, kSection})
    EXPECT_TRUE(alive(ring[member])) << member;
  jt_test::expect_sound(*space);
}

// Each of the orders in which four of the six can go; what has gone along with another is passed over.
TEST_F(HeaderRing, AnyFourMembersGoInAnyOrder) {
  for (const std::string &form : forms()) {
    std::array<std::size_t, kMembers> order = {0, 1, 2, 3, 4, 5};
    do {
      if (order[4] > order[5]) continue;
      const Ring ring = decode(form);
      for (std::size_t step = 0; step < 4; ++step) destroy_if_alive(ring[order[step]]);
      EXPECT_EQ(messages(), Messages());
    } while (std::next_permutation(order.begin(), order.end()));
  }
}

TEST_F(HeaderRing, AllSixMembersGoInAnyOrderAndLeaveNothing) {
  for (const std::string &form : forms()) {
    std::array<std::size_t, kMembers> order = {0, 1, 2, 3, 4, 5};
    do {
      const Ring ring = decode(form);
      for (const std::size_t member : order) destroy_if_alive(ring[member]);
      expect_all_released();
    } while (std::next_permutation(order.begin(), order.end()));
  }
}

TEST_F(HeaderRing, WhatIsLeftAfterAMemberGoesAtOnce) {
  for (const std::string &form : forms()) {
    for (std::size_t first = 0; first < kMembers; ++first) {
      for (std::size_t second = 0; second < kMembers; ++second) {
        const Ring ring = decode(form);
        if (!destroy_if_alive(ring[first]) || ring[second] == nullptr || !alive(ring[second])) continue;
        EXPECT_EQ(destroy_all_nodes(space, ring[second]), 1);
        EXPECT_FALSE(alive(ring[second]));
        jt_test::expect_sound(*space);
        EXPECT_EQ(messages(), Messages());
      }
    }
  }
}

TEST_F(HeaderRing, ChildrenOfAnyMemberCanGo) {
  for (const std::string &form : forms()) {
    for (std::size_t member = 0; member < kMembers; ++member) {
      const Ring ring = decode(form);
      if (ring[member] == nullptr) continue;
      EXPECT_EQ(destroy_children(space, ring[member]), 1);
      EXPECT_TRUE(alive(ring[member]));
      EXPECT_EQ(ring[member]->first_child, nullptr);
      jt_test::expect_sound(*space);
    }
  }
}

TEST_F(HeaderRing, TheChildAtTheCursorOfAnyMemberCanGo) {
  for (const std::string &form : forms()) {
    for (std::size_t member = 0; member < kMembers; ++member) {
      const Ring ring = decode(form);
      if (ring[member] == nullptr) continue;
      while (alive(ring[member]) && delete_index_child(space, ring[member]) != 0)
        jt_test::expect_sound(*space);
      EXPECT_TRUE(alive(ring[member]));
    }
  }
}

TEST_F(HeaderRing, ASessionClosesWithAnyPartOfIt) {
  for (const std::string &form : forms()) {
    for (std::size_t member = 0; member < kMembers; ++member) {
      const Ring ring = decode(form);
      destroy_if_alive(ring[member]);
      EXPECT_EQ(jt_close_parsing_utility(space), 1);
      space = jt_open_parsing_utility("test");
    }
  }
}

TEST_F(HeaderRing, ACursorOnTheHeaderDoesNotOutliveIt) {
  const Ring ring = decode(jt_test::plain_template());
  for (const Member member : {kVersion, kEncoding, kIdentifier})
    EXPECT_EQ(reset_index(space, ring[member]), 1);
  EXPECT_EQ(destroy_node(space, ring[kHeader]), 1);
  jt_test::expect_sound(*space);
  for (const Member member : {kVersion, kEncoding, kIdentifier})
    EXPECT_EQ(index_child_name(space, ring[member]), nullptr);
}

TEST_F(HeaderRing, AHeaderAttributeMayMoveIntoAnInvocation) {
  for (const Member member : {kVersion, kEncoding, kIdentifier}) {
    const Ring ring = decode(jt_test::plain_template());
    jt_node *const invocation = ring[kRoot]->first_child->first_child;
    EXPECT_EQ(add_child(space, invocation, ring[member]), 1);
    EXPECT_EQ(invocation->last_child, ring[member]);
    EXPECT_EQ(ring[member]->first_child, nullptr);
    EXPECT_EQ(ring[kHeader]->parent, member == kVersion ? ring[kEncoding] : ring[kVersion]);
    jt_test::expect_sound(*space);
    EXPECT_EQ(destroy_all_nodes(space, ring[kHeader]), 1);
    expect_all_released();
  }
}

TEST_F(HeaderRing, AHeaderAttributeStaysSoundWhenItIsHungUnderItsHeader) {
  for (const Member member : {kVersion, kEncoding, kIdentifier}) {
    const Ring ring = decode(jt_test::plain_template());
    add_child(space, ring[kHeader], ring[member]);
    jt_test::expect_sound(*space);
    EXPECT_EQ(destroy_all_nodes(space, ring[kRoot]), 1);
    expect_all_released();
  }
}

TEST_F(HeaderRing, NothingHangsUnderAHeaderAttribute) {
  const Ring ring = decode(jt_test::plain_template());
  for (const Member member : {kVersion, kEncoding, kIdentifier}) {
    jt_node *const value = create_value_node(space, ring[member]->type, "v");
    EXPECT_EQ(add_child(space, ring[member], value), 0);
    EXPECT_EQ(add_unique_child(space, ring[member], value), 0);
    EXPECT_EQ(add_index_child(space, ring[member], value), 0);
    EXPECT_EQ(ring[member]->first_child, ring[kHeader]);
  }
  EXPECT_EQ(ring[kHeader]->next_sibling, nullptr);
  jt_test::expect_sound(*space);
}

TEST_F(HeaderRing, TheHeadersOwnAttributesCanBeEdited) {
  const Ring ring = decode(jt_test::question_template());
  add_value(add_attribute(ring[kHeader], "integer", "copies"), "1");
  EXPECT_EQ(jt_test::names_of(ring[kHeader]), (std::vector<std::string>{"note", "copies"}));
  EXPECT_EQ(destroy_node(space, get_child(space, ring[kHeader], "NOTE")), 1);
  EXPECT_EQ(ring[kVersion]->first_child, ring[kHeader]);
  jt_test::expect_sound(*space);
  EXPECT_EQ(destroy_all_nodes(space, ring[kRoot]), 1);
  expect_all_released();
}

TEST_F(HeaderRing, ASecondTemplateIsNotTouched) {
  const std::string form = jt_test::question_template();
  const Ring ring = decode(form);
  const auto first_count = count_alive();
  const int32_t second = jt_decode_template(space, form.c_str());
  EXPECT_EQ(destroy_all_nodes(space, ring[kVersion]), 1);
  EXPECT_EQ(count_alive(), first_count);
  EXPECT_EQ(destroy_all_nodes(space, at(second)), 1);
  expect_all_released();
}

}  // namespace
