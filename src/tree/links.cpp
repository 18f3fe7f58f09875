#include "tree/links.h"

#include <cassert>

#include "tree/child_index.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "tree/session.h"

namespace jt_core {
namespace {

void link_between(jt_parser_space &space, jt_node &parent, jt_node *before, jt_node &child, jt_node *after) {
  ++space.linked_nodes;
  child.parent = &parent;
  child.previous_sibling = before;
  child.next_sibling = after;
  (before != nullptr ? before->next_sibling : parent.first_child) = &child;
  (after != nullptr ? after->previous_sibling : parent.last_child) = &child;
  if (parent.index != nullptr) index_child(parent, child);
}

void leave_siblings(jt_node &node) {
  if (node.previous_sibling != nullptr) node.previous_sibling->next_sibling = node.next_sibling;
  if (node.next_sibling != nullptr) node.next_sibling->previous_sibling = node.previous_sibling;
}

void leave_parent(jt_parser_space &space, jt_node &node) {
  if (node.parent->index != nullptr) unindex_child(*node.parent, node);
  leave_list(space, node);
}

// The header goes: its attributes and the template beside it no longer know one.
void unlink_header(jt_node &header) {
  for (jt_node *attribute = header.parent; attribute != nullptr; attribute = attribute->next_sibling) {
    attribute->first_child = attribute->last_child = nullptr;
    if (attribute->cursor == &header) attribute->cursor = nullptr;
  }
  if (header.previous_sibling != nullptr) header.previous_sibling->previous_sibling = nullptr;
}

// One of the header's attributes goes; the header's values are found by their position, so the next one moves
// up.
void unlink_header_attribute(jt_node &attribute) {
  jt_node &header = *attribute.first_child;
  if (header.parent == &attribute) header.parent = attribute.next_sibling;
  attribute.first_child = attribute.last_child = nullptr;
  leave_siblings(attribute);
}

// A root goes: its header and its section belong together from now on. A section goes: the root has none.
void unlink_template(jt_node &node) {
  jt_node *const before = node.previous_sibling;
  jt_node *const section = node.next_sibling;
  if (before != nullptr) (is_header(*before) ? before->previous_sibling : before->next_sibling) = section;
  if (section != nullptr) section->previous_sibling = before;
}

}  // namespace

void leave_list(jt_parser_space &space, jt_node &node) {
  assert(space.linked_nodes > 0 || space.bulk_release_unsafe);
  --space.linked_nodes;
  jt_node &parent = *node.parent;
  jt_node *const neighbour = node.previous_sibling != nullptr ? node.previous_sibling : node.next_sibling;
  if (parent.cursor == &node) parent.cursor = neighbour;
  if (parent.first_child == &node) parent.first_child = node.next_sibling;
  if (parent.last_child == &node) parent.last_child = node.previous_sibling;
  leave_siblings(node);
}

void append_child(jt_parser_space &space, jt_node &parent, jt_node &child) {
  link_between(space, parent, parent.last_child, child, nullptr);
  if (parent.cursor == nullptr || parent.cursor == not_started()) parent.cursor = &child;
}

void insert_at_cursor(jt_parser_space &space, jt_node &parent, jt_node &child) {
  start_cursor(parent);
  if (parent.cursor == nullptr) {
    link_between(space, parent, parent.last_child, child, nullptr);
  } else {
    link_between(space, parent, parent.cursor, child, parent.cursor->next_sibling);
  }
  parent.cursor = &child;
}

void unlink(jt_parser_space &space, jt_node &node) {
  if (is_header(node)) {
    unlink_header(node);
  } else if (is_template(node)) {
    unlink_template(node);
  } else if (node.parent != nullptr) {
    leave_parent(space, node);
  } else if (is_header_attribute(node)) {
    unlink_header_attribute(node);
  } else {
    leave_siblings(node);
  }
  node.parent = node.previous_sibling = node.next_sibling = nullptr;
}

void start_cursor(jt_node &parent) {
  if (parent.cursor == not_started()) parent.cursor = parent.first_child;
}

void link_header(jt_node &root, jt_node &header) {
  root.previous_sibling = &header;
  header.previous_sibling = &root;
}

void link_header_attributes(jt_node &header, const std::array<jt_node *, 3> &attributes) {
  jt_node *before = nullptr;
  for (jt_node *const attribute : attributes) {
    attribute->first_child = attribute->last_child = &header;
    attribute->previous_sibling = before;
    (before != nullptr ? before->next_sibling : header.parent) = attribute;
    before = attribute;
  }
}

void link_section(jt_node &root, jt_node &section) {
  root.next_sibling = &section;
  section.previous_sibling = &root;
}

void rename(jt_node &node, char *name) {
  unindex_child(*node.parent, node);
  release_text(node, node.name);
  node.name = name;
  set_owns_heap_blocks(node);
  node.key_hash = name_hash(view_of(name));
  index_child(*node.parent, node);
}

}  // namespace jt_core
