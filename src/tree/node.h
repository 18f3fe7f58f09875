// The node record: one element of a template tree. A node owns every text it points to, its value and its
// status; what lies inside the node's own cell goes with it, everything else is a block of its session's heap,
// but for the values that a client's own type made. There
// are two or three nodes to an attribute, so the record is kept small: what a device can spare for templates
// is mostly this. tests/tree/construction_test.cpp has the fields of a new node.
#ifndef JT_TREE_NODE_H
#define JT_TREE_NODE_H

#include <cstdint>

#include "base/arena.h"
#include "base/markers.h"
#include "base/text.h"
#include "jt.h"

namespace jt_core {
struct ChildIndex;
}

struct jt_node {
  jt_core::CellHead cell;  // the node's storage
  std::int16_t node_class;
  bool non_compulsory;
  bool owns_heap_blocks : 1;  // beside its cell, or has owned some
  bool keeps_value : 1;  // a value outside of the cell is a block of the session's heap, not a type's own
  std::int32_t bookmark;
  union {
    std::uint32_t key_hash;  // of the name
    std::uint32_t entry;     // in the index of the parent, while that has one
  };
  const jt_type *type;
  char *comment;
  char *name;
  // Of a node whose type is unknown: the name of the type or, where the node is a value, its text.
  union {
    char *unresolved_type_name;
    char *pending_value;
  };
  jt_value *value;
  const jt_status *status;
  char *overridden_value;

  jt_node *parent;
  jt_node *first_child;
  jt_node *last_child;
  jt_node *previous_sibling;
  jt_node *next_sibling;
  jt_node *cursor;
  jt_core::ChildIndex *index;  // of the children, by name or value; null until it pays
};

static_assert(sizeof(jt_node) == 16 + 14 * sizeof(void *));

namespace jt_core {

inline bool has_known_type(const jt_node &node) { return node.type != unknown_type(); }

// A node of the class of values that was made with a name has neither a value nor a text for one.
inline bool has_pending_value(const jt_node &node) { return node.value == untyped_value(); }

// The type's name as it is written: the descriptor's, or the one that no look-up knew. May be null.
inline const char *type_name_of(const jt_node &node) {
  if (has_known_type(node)) return node.type->name;
  return has_pending_value(node) ? nullptr : node.unresolved_type_name;
}

inline bool is_template(const jt_node &node) { return node.node_class == JT_NODE_TEMPLATE; }

// The previous sibling of a section is the root; that of a root is its header, or there is none.
inline bool is_section(const jt_node &node) {
  return is_template(node) && node.previous_sibling != nullptr && is_template(*node.previous_sibling);
}

// The classes of headers are the last ones.
inline bool is_header(const jt_node &node) { return node.node_class >= JT_NODE_HEADER; }

// The three attributes of a header point back to it through their first-child link; it is not their child.
inline bool is_header_attribute(const jt_node &node) {
  return node.first_child != nullptr && is_header(*node.first_child);
}

}  // namespace jt_core

#endif
