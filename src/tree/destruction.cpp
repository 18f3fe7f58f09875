#include "tree/destruction.h"

#include "foundation/parser_space.h"
#include "tree/child_index.h"
#include "tree/links.h"
#include "tree/node.h"
#include "tree/node_storage.h"

namespace jt {
namespace {

// Whether the node may be destroyed in this session: its slot holds this very node.
bool is_registered(jt_parser_space &space, const jt_node &node) {
  if (holds_node(space.table, node.bookmark, &node)) return true;
  if (node.bookmark >= space.table.count) report(&space, message::kBadBookmark);
  return false;
}

void unregister_and_release(jt_parser_space &space, jt_node *node) {
  release_bookmark(&space, node->bookmark);
  release_node(space, node);
}

// From leaf to leaf: a node whose last child has gone is the next leaf.
void release_below(jt_parser_space &space, jt_node &top) {
  jt_node *node = &top;
  for (;;) {
    while (node->first_child != nullptr) node = node->first_child;
    if (node == &top) break;
    jt_node *const parent = node->parent;
    jt_node *const next = node->next_sibling;
    parent->first_child = next;
    unregister_and_release(space, node);
    node = next != nullptr ? next : parent;
  }
}

void destroy(jt_parser_space &space, jt_node &node) {
  if (is_header_attribute(node)) destroy(space, *node.first_child);
  unlink(node);
  release_below(space, node);
  unregister_and_release(space, &node);
}

// The nodes that have been reached, in the order in which they were, linked through their cursors.
class ReachedNodes {
 public:
  explicit ReachedNodes(jt_parser_space &space) : space_(space) {}

  void reach(jt_node *node) {
    if (node == nullptr || !holds_node(space_.table, node->bookmark, node)) return;
    vacate_slot(space_, node->bookmark);
    node->cursor = nullptr;
    (last_ != nullptr ? last_->cursor : first_) = node;
    last_ = node;
  }

  void reach_neighbours() {
    for (jt_node *node = first_; node != nullptr; node = node->cursor) {
      for (jt_node *const link :
           {node->parent, node->previous_sibling, node->next_sibling, node->first_child}) {
        reach(link);
      }
    }
  }

  void release() {
    for (jt_node *node = first_; node != nullptr;) {
      jt_node *const next = node->cursor;
      release_node(space_, node);
      node = next;
    }
  }

 private:
  jt_parser_space &space_;
  jt_node *first_ = nullptr;
  jt_node *last_ = nullptr;
};

}  // namespace

void destroy_registered_nodes(jt_parser_space &space) {
  for (std::int32_t slot = 0; slot < space.table.count; ++slot) {
    jt_node *const node = space.table.slots[slot];
    if (node != released_slot()) release_node(space, node);
  }
}

}  // namespace jt

extern "C" {

int32_t destroy_node(jt_parser_space *space, jt_node *node) {
  if (space == nullptr || node == nullptr || !jt::is_registered(*space, *node)) return 0;
  jt::destroy(*space, *node);
  return 1;
}

int32_t destroy_children(jt_parser_space *space, jt_node *node) {
  if (space == nullptr || node == nullptr || !jt::is_registered(*space, *node)) return 0;
  if (jt::is_header_attribute(*node)) {
    jt::destroy(*space, *node->first_child);
    return 1;
  }
  jt::drop_index(*node);
  jt::release_below(*space, *node);
  node->last_child = nullptr;
  if (node->cursor != jt::not_started()) node->cursor = nullptr;
  return 1;
}

int32_t delete_index_child(jt_parser_space *space, jt_node *parent) {
  if (space == nullptr || parent == nullptr) return 0;
  jt::start_cursor(*parent);
  return destroy_node(space, parent->cursor);
}

int32_t destroy_all_nodes(jt_parser_space *space, jt_node *node) {
  if (space == nullptr || node == nullptr || !jt::is_registered(*space, *node)) return 0;
  jt::ReachedNodes nodes(*space);
  nodes.reach(node);
  nodes.reach_neighbours();
  nodes.release();
  return 1;
}

}  // extern "C"
