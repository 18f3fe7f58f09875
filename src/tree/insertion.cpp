// The checked operations that put nodes into a tree: add_child, add_unique_child, add_index_child. A node
// that does not fit stays where it is. tests/tree/linking_test.cpp has what fits where,
// tests/tree/moving_test.cpp what becomes of the place that a node leaves.
#include "tree/child_index.h"
#include "tree/links.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "tree/session.h"

namespace jt_core {
namespace {

// A node must not come to hang below itself. A node without children cannot, so the walk is rare and short.
bool is_within(const jt_node &node, const jt_node &subtree) {
  if (&node == &subtree) return true;
  if (subtree.first_child == nullptr) return false;
  const jt_node *above = &node;
  while (above != nullptr && above != &subtree) above = above->parent;
  return above != nullptr;
}

// The child's type must be what a look-up under this parent gives; the look-up makes its reports again.
bool fits(jt_parser_space *space, const jt_node &parent, const jt_node &child) {
  const bool known_place = jt_get_type(space, type_name_of(child), child.node_class, &parent) == child.type;
  const bool allowed = known_place && !is_within(parent, child) && !is_header_attribute(parent);
  if (!allowed) report(space, message::kInconsistentType);
  return allowed;
}

// A node of another session comes into a tree of this one, or the other way round.
void note_foreign_nodes(jt_parser_space &space, const jt_node &parent, const jt_node &child) {
  for (const jt_node *const node : {&parent, &child}) {
    jt_parser_space &session = session_of(*node);
    if (&session != &space) session.bulk_release_unsafe = space.bulk_release_unsafe = true;
  }
}

using Link = void (*)(jt_parser_space &space, jt_node &parent, jt_node &child);

std::int32_t add(jt_parser_space *space, jt_node *parent, jt_node *child, Link link) {
  if (space == nullptr || parent == nullptr) return 0;
  if (child == nullptr) return 1;
  if (!fits(space, *parent, *child)) return 0;
  note_foreign_nodes(*space, *parent, *child);
  unlink(*space, *child);
  link(*space, *parent, *child);
  return 1;
}

}  // namespace
}  // namespace jt_core

extern "C" {

int32_t add_child(jt_parser_space *space, jt_node *parent, jt_node *child) {
  return jt_core::add(space, parent, child, jt_core::append_child);
}

int32_t add_unique_child(jt_parser_space *space, jt_node *parent, jt_node *child) {
  if (space == nullptr || parent == nullptr) return 0;
  if (child == nullptr) return 1;
  if (!jt_core::fits(space, *parent, *child)) return 0;
  if (child->name != nullptr && jt_core::find_child(*parent, child->name) != nullptr) {
    jt_core::report(space, jt_core::message::kDuplicateName, child->name);
    return 0;
  }
  jt_core::note_foreign_nodes(*space, *parent, *child);
  jt_core::unlink(*space, *child);
  jt_core::append_child(*space, *parent, *child);
  return 1;
}

int32_t add_index_child(jt_parser_space *space, jt_node *parent, jt_node *child) {
  return jt_core::add(space, parent, child, jt_core::insert_at_cursor);
}

}  // extern "C"
