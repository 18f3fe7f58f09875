#include "tree/destruction.h"

#include <cassert>
#include <utility>

#include "tree/bookmarks.h"
#include "tree/child_index.h"
#include "tree/links.h"
#include "tree/node.h"
#include "tree/node_storage.h"
#include "tree/session.h"

namespace jt_core {
namespace {

// Whether the node's slot holds this very node.
bool is_live(const jt_parser_space &space, const jt_node &node) {
  return holds_node(space.table, node.bookmark, &node);
}

// Whether the node may be destroyed in this session.
bool is_registered(jt_parser_space &space, const jt_node &node) {
  if (is_live(space, node)) return true;
  if (node.bookmark >= space.table.count) report(&space, message::kBadBookmark);
  return false;
}

// From the session that it belongs to, whose tree it may have left for that of another.
void unregister_and_release(jt_node *node) {
  jt_parser_space &space = session_of(*node);
  release_bookmark(&space, node->bookmark);
  release_node(space, node);
}

// What becomes of foreign nodes: those of another session.
enum class ForeignNodes { kReleased, kSpared };

// A node outlives the parent and the siblings that it has.
void leave_behind(jt_node &node) {
  node.parent = node.previous_sibling = node.next_sibling = nullptr;
  node.key_hash = name_hash(view_of(node.name));
}

// The node or the first sibling behind it that is to be released. Those before it are spared.
template <ForeignNodes Which>
jt_node *next_to_release(const jt_parser_space &space, jt_node *node) {
  if constexpr (Which == ForeignNodes::kSpared) {
    while (node != nullptr && !is_live(space, *node)) leave_behind(*std::exchange(node, node->next_sibling));
  }
  return node;
}

bool is_foreign(const jt_parser_space &space, const jt_node &node) { return &session_of(node) != &space; }

// The parent does without its index, so that closing a session links nothing of the types into a program.
void part_from_parent(jt_parser_space &space, jt_node &node) {
  drop_index(*node.parent);
  leave_list(space, node);
  leave_behind(node);
}

// Parts the nodes of a session that goes from those of others that they hang below, or that hang below them.
void part_from_foreign_nodes(jt_parser_space &space, jt_node &node) {
  if (!is_header(node) && node.parent != nullptr && is_foreign(space, *node.parent))
    part_from_parent(space, node);
  if (is_header_attribute(node)) return;
  for (jt_node *child = node.first_child; child != nullptr;) {
    jt_node *const next = child->next_sibling;
    if (is_foreign(space, *child)) part_from_parent(space, *child);
    child = next;
  }
}

// Post-order without a stack: goes down by the first child; after a release goes on with the next sibling or,
// where there is none, with the parent. That is nearly the order in which the nodes lie in memory.
template <ForeignNodes Which>
void release_below(jt_parser_space &space, jt_node &top) {
  jt_node *node = next_to_release<Which>(space, std::exchange(top.first_child, nullptr));
  while (node != nullptr) {
    if (jt_node *const child = next_to_release<Which>(space, node->first_child)) {
      node = child;
      continue;
    }
    jt_node *next = nullptr;
    while (next == nullptr && node != &top) {
      next = next_to_release<Which>(space, node->next_sibling);
      jt_node *const parent = node->parent;
      if constexpr (Which == ForeignNodes::kSpared) {
        vacate_slot(space.table, space.free_slots, node->bookmark);
        release_node(space, node);
      } else {
        unregister_and_release(node);
      }
      assert(space.linked_nodes > 0 || space.bulk_release_unsafe);
      --space.linked_nodes;
      node = parent;
    }
    node = next;
  }
}

void destroy(jt_parser_space &space, jt_node &node) {
  if (is_header_attribute(node)) destroy(space, *node.first_child);
  unlink(space, node);
  release_below<ForeignNodes::kReleased>(space, node);
  unregister_and_release(&node);
}

// The tops of a template: the nodes that hang below no other. destroy_all_nodes() may start from any node. It
// climbs to a top, follows the links between tops from there, and then takes what hangs below each of them:
//
//     header attribute - header attribute - header attribute
//           `-- header -- root -- section
//                         `-- services   `-- services
//
// The tops are linked through their cursors, in the order in which they were reached.
class TemplateTops {
 public:
  explicit TemplateTops(jt_parser_space &space) : space_(space) {}

  void reach(jt_node *node) {
    if (node == nullptr || !is_live(space_, *node)) return;
    vacate_slot(space_.table, space_.free_slots, node->bookmark);
    node->cursor = nullptr;
    (last_ != nullptr ? last_->cursor : first_) = node;
    last_ = node;
  }

  void reach_neighbours() {
    for (jt_node *node = first_; node != nullptr; node = node->cursor) {
      for (jt_node *const link : {node->parent, node->previous_sibling, node->next_sibling}) reach(link);
      if (is_header_attribute(*node)) reach(node->first_child);
    }
  }

  // With what hangs below them.
  void release() {
    if (are_all() && are_many()) {
      release_all();
    } else {
      release_each();
    }
  }

 private:
  // Whether the session has no nodes but these and what hangs below them. The reached ones have no slot any
  // more: what is left must all hang below something.
  bool are_all() const {
    return live_slots(space_.table, space_.free_slots) == space_.linked_nodes && !space_.bulk_release_unsafe;
  }

  // Enough to be worth a walk through the table, which is as long as it ever was.
  bool are_many() const { return space_.linked_nodes >= space_.table.count / 64; }

  void release_all() {
    release_all_nodes(space_);
    vacate_all_slots(space_.table, space_.free_slots);
    space_.linked_nodes = 0;
  }

  // A top that has a parent hangs below a foreign node.
  void release_each() {
    for (jt_node *node = first_; node != nullptr; node = node->cursor) {
      if (!is_header(*node) && node->parent != nullptr) unlink(space_, *node);
    }
    for (jt_node *node = first_; node != nullptr; node = node->cursor) {
      if (!is_header_attribute(*node)) release_below<ForeignNodes::kSpared>(space_, *node);
    }
    for (jt_node *node = first_; node != nullptr;) {
      jt_node *const next = node->cursor;
      release_node(space_, node);
      node = next;
    }
  }

  jt_parser_space &space_;
  jt_node *first_ = nullptr;
  jt_node *last_ = nullptr;
};

// The last node on the way up that the session knows.
jt_node *top_of(const jt_parser_space &space, jt_node *node) {
  while (node->parent != nullptr && is_live(space, *node->parent)) node = node->parent;
  return node;
}

}  // namespace

void destroy_registered_nodes(jt_parser_space &space) {
  for (std::int32_t slot = 0; space.bulk_release_unsafe && slot < space.table.count; ++slot) {
    jt_node *const node = space.table.slots[slot];
    if (node != released_slot()) part_from_foreign_nodes(space, *node);
  }
  for (std::int32_t slot = 0; slot < space.table.count; ++slot) {
    jt_node *const node = space.table.slots[slot];
    if (node != released_slot()) release_node(space, node);
  }
}

}  // namespace jt_core

extern "C" {

int32_t destroy_node(jt_parser_space *space, jt_node *node) {
  if (space == nullptr || node == nullptr || !jt_core::is_registered(*space, *node)) return 0;
  jt_core::destroy(*space, *node);
  return 1;
}

int32_t destroy_children(jt_parser_space *space, jt_node *node) {
  if (space == nullptr || node == nullptr || !jt_core::is_registered(*space, *node)) return 0;
  if (jt_core::is_header_attribute(*node)) {
    jt_core::destroy(*space, *node->first_child);
    return 1;
  }
  jt_core::release_index(*node);
  jt_core::release_below<jt_core::ForeignNodes::kReleased>(*space, *node);
  node->last_child = nullptr;
  if (node->cursor != jt_core::not_started()) node->cursor = nullptr;
  return 1;
}

int32_t delete_index_child(jt_parser_space *space, jt_node *parent) {
  if (space == nullptr || parent == nullptr) return 0;
  jt_core::start_cursor(*parent);
  return destroy_node(space, parent->cursor);
}

int32_t destroy_all_nodes(jt_parser_space *space, jt_node *node) {
  if (space == nullptr || node == nullptr || !jt_core::is_registered(*space, *node)) return 0;
  jt_core::TemplateTops nodes(*space);
  nodes.reach(jt_core::top_of(*space, node));
  nodes.reach_neighbours();
  nodes.release();
  return 1;
}

}  // extern "C"
