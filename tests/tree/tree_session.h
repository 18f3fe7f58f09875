// A session with short ways to build a tree, and a look at the whole node table that says whether every link
// in it is sound.
#ifndef JT_TESTS_TREE_TREE_SESSION_H
#define JT_TESTS_TREE_TREE_SESSION_H

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "support/session.h"
#include "tree/node.h"
#include "tree/session.h"

namespace jt_test {

using Nodes = std::vector<jt_node *>;

inline std::set<const jt_node *> registered_nodes(const jt_parser_space &space) {
  std::set<const jt_node *> nodes(space.table.slots, space.table.slots + space.table.count);
  nodes.erase(jt_core::released_slot());
  return nodes;
}

inline Nodes children_of(const jt_node *parent) {
  Nodes children;
  for (jt_node *child = parent->first_child; child != nullptr; child = child->next_sibling)
    children.push_back(child);
  return children;
}

// Names in order; "-" stands for a child without a name.
inline std::vector<std::string> names_of(const jt_node *parent) {
  std::vector<std::string> names;
  for (const jt_node *const child : children_of(parent))
    names.emplace_back(child->name != nullptr ? child->name : "-");
  return names;
}

// Every link leads to a node that is alive.
inline bool links_are_alive(const std::set<const jt_node *> &alive, const jt_node &node) {
  const auto is_alive = [&](const jt_node *link) { return link == nullptr || alive.count(link) != 0; };
  return is_alive(node.parent) && is_alive(node.first_child) && is_alive(node.last_child) &&
         is_alive(node.previous_sibling) && is_alive(node.next_sibling) &&
         (node.cursor == jt_core::not_started() || is_alive(node.cursor));
}

// The list reads the same from both ends, and the cursor is on it.
inline bool children_are_chained(const jt_node &parent) {
  const jt_node *before = nullptr;
  bool cursor_found = parent.cursor == nullptr || parent.cursor == jt_core::not_started();
  for (const jt_node *child = parent.first_child; child != nullptr; child = child->next_sibling) {
    if (child->parent != &parent || child->previous_sibling != before) return false;
    cursor_found = cursor_found || parent.cursor == child;
    before = child;
  }
  return cursor_found && parent.last_child == before;
}

// The parent link of a header holds its first attribute.
inline bool is_linked(const jt_node *node) { return node->parent != nullptr && !jt_core::is_header(*node); }

// Bookmarks name their nodes, no link dangles, every list of children is whole, and linked nodes are counted
// as long as that matters.
inline void expect_sound(const jt_parser_space &space) {
  const std::set<const jt_node *> alive = registered_nodes(space);
  const auto linked = std::count_if(alive.begin(), alive.end(), is_linked);
  if (!space.bulk_release_unsafe) {
    ASSERT_EQ(space.linked_nodes, linked);
  }
  for (const jt_node *const node : alive) {
    ASSERT_EQ(space.table.slots[node->bookmark], node);
    ASSERT_TRUE(links_are_alive(alive, *node)) << "bookmark " << node->bookmark;
    ASSERT_TRUE(jt_core::is_header_attribute(*node) || children_are_chained(*node))
        << "bookmark " << node->bookmark;
  }
}

class TreeTest : public SessionTest {
 protected:
  jt_node *make(const char *type_name, const char *name, int32_t node_class, jt_node *enclosing) {
    return create_typed_node(space, type_name, name, node_class, enclosing);
  }
  jt_node *make_template() { return make("template", "template", JT_NODE_TEMPLATE, nullptr); }
  jt_node *make_header() { return make("sil_header", "header", JT_NODE_HEADER, nullptr); }

  jt_node *linked(jt_node *parent, jt_node *child) {
    EXPECT_NE(child, nullptr);
    EXPECT_EQ(add_child(space, parent, child), 1);
    return child;
  }
  jt_node *add_service(jt_node *root, const char *type_name, const char *name) {
    return linked(root, make(type_name, name, JT_NODE_SERVICE, root));
  }
  jt_node *add_service(jt_node *root, const char *name) { return add_service(root, name, name); }
  jt_node *add_invocation(jt_node *service, const char *name = "") {
    return linked(service, make(service->name, name, JT_NODE_INVOCATION, service));
  }
  jt_node *add_attribute(jt_node *invocation, const char *type_name, const char *name) {
    return linked(invocation, make(type_name, name, JT_NODE_ATTRIBUTE, invocation));
  }
  jt_node *add_value(jt_node *attribute, const char *text) {
    return linked(attribute, create_value_node(space, attribute->type, text));
  }

  // An invocation of the scan service, and one of a service that nobody knows.
  jt_node *scan_invocation() { return add_invocation(add_service(make_template(), "kmt_svc_scan")); }
  jt_node *unknown_invocation() {
    jt_node *const invocation = add_invocation(add_service(make_template(), "service", "MyOwn"));
    forget_messages();
    return invocation;
  }

  // A parent with children of these names and the cursor on the first.
  jt_node *parent_of(const std::vector<const char *> &names) {
    jt_node *const parent = scan_invocation();
    for (const char *const name : names) add_attribute(parent, "integer", name);
    return parent;
  }

  void forget_messages() { space->errors = {}; }
  void expect_all_released() {
    for (int32_t slot = 0; slot < space->table.count; ++slot)
      ASSERT_EQ(space->table.slots[slot], jt_core::released_slot()) << "slot " << slot;
  }
  bool alive(const jt_node *node) { return registered_nodes(*space).count(node) != 0; }
  std::size_t count_alive() { return registered_nodes(*space).size(); }
  jt_node *at(int32_t handle) { return opaque_to_node(space, handle); }
};

// A cursor that has not started, on a parent with children: only nodes without children are made that way.
inline void unstart(jt_node *parent) { parent->cursor = jt_core::not_started(); }

inline void exhaust(jt_parser_space *space, jt_node *parent) {
  while (advance_index(space, parent) != 0) continue;
  EXPECT_EQ(parent->cursor, nullptr);
}

// One template of each form, with everything that can hang under a node.
inline constexpr char kBody[] =
    "# a comment\n"
    "[ kmt_svc_scan MyScan ] one {\n"
    "  integer copies = 1, 2; (kmt_status_completed)\n"
    "  *enum_mediasize size = ANSI, \"odd size\"; (odd {text})\n"
    "} (kmt_status_error {why}) two { } end (kmt_status_aborted {late})\n"
    "[ service MyOwn ] { string s = \"x y\"; } end\n";

inline std::string template_with(const std::string &opening, const std::string &section) {
  const bool with_body = opening != "!";
  return "<" + opening + " SIL 4.2.00 ASCII id-1 >\nstring note = \"n\", m;\n" + section +
         (with_body ? kBody : "") + "< /SIL >\n";
}
inline std::string plain_template() { return template_with("", ""); }
inline std::string question_template() {
  return template_with("?", std::string("< ? >\n") + kBody + "< /? >\n");
}
inline std::string exclaim_template() {
  return template_with("!", std::string("< ! >\n") + kBody + "< /! >\n");
}

}  // namespace jt_test

#endif
