// The node record: one element of a template tree. The stated fields come first and in their order; the
// fields after them only serve speed and storage. A node owns every text it points to, its value and its
// status; what lies inside the node's own piece of storage goes with it, everything else is a block of the
// heap.
#ifndef JT_TREE_NODE_H
#define JT_TREE_NODE_H

#include <cstdint>

#include "foundation/markers.h"
#include "foundation/piece_pool.h"
#include "foundation/text.h"
#include "jt.h"

namespace jt {
struct ChildIndex;
}

struct jt_node {
  std::int32_t node_class;
  char *comment;
  char *name;
  char *unresolved_type_name;
  std::int32_t bookmark;
  jt_value *value;
  char *pending_value;
  const jt_type *type;
  jt_status *status;
  char *overridden_value;
  std::int32_t non_compulsory;
  jt_node *parent;
  jt_node *first_child;
  jt_node *previous_sibling;
  jt_node *next_sibling;
  jt_node *cursor;

  jt_node *last_child;
  jt::ChildIndex *index;            // of the children, by name or value; null until it pays
  std::uint32_t key_hash;           // of the name or, once it is wanted, of the value
  jt::PieceTag piece;               // the node's storage
  std::uint32_t status_storage[2];  // a status without text: its number, and a terminator for the marker
};

namespace jt {

inline bool has_known_type(const jt_node &node) { return node.type != unknown_type(); }

// The type's name as it is written: the descriptor's, or the one that no look-up knew. May be null.
inline const char *type_name_of(const jt_node &node) {
  return has_known_type(node) ? node.type->name : node.unresolved_type_name;
}

inline bool is_header(const jt_node &node) {
  return node.node_class >= JT_NODE_HEADER && node.node_class <= JT_NODE_HEADER_EXCLAIM;
}

// The three attributes of a header point back to it through their first-child link; it is not their child.
inline bool is_header_attribute(const jt_node &node) {
  return node.first_child != nullptr && is_header(*node.first_child);
}

}  // namespace jt

#endif
