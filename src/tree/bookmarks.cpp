// An opaque handle is what clients hold instead of a node. It is computed from the bookmark, so it is never a
// valid pointer, never positive, and resolves in constant time.
#include "tree/bookmarks.h"

#include "base/markers.h"
#include "tree/session.h"

namespace jt_core {
namespace {

constexpr std::int64_t kFirstHandle = -100;

}  // namespace

std::int32_t assign_bookmark(jt_parser_space *space, jt_node *node) {
  if (space == nullptr) return -1;
  const std::int32_t slot = assign_slot(space->table, space->free_slots, node);
  if (slot >= 0) return slot;
  if (slot == kNoSlotMemory) report(space, message::kAllocation);
  report(space, message::kNoNodeTable);
  return -1;
}

std::int32_t release_bookmark(jt_parser_space *space, std::int32_t bookmark) {
  if (space == nullptr) return 1;
  const NodeTable &table = space->table;
  if (table.slots == nullptr || bookmark < 0 || bookmark >= table.count) {
    report(space, message::kBadBookmark);
    return 1;
  }
  if (table.slots[bookmark] == released_slot()) return 0;
  vacate_slot(space->table, space->free_slots, bookmark);
  return 1;
}

}  // namespace jt_core

extern "C" {

int32_t bookmark_to_opaque(int32_t bookmark) {
  return static_cast<int32_t>(jt_core::kFirstHandle - bookmark);
}

jt_node *opaque_to_node(jt_parser_space *space, int32_t handle) {
  if (space == nullptr) return nullptr;
  const std::int64_t bookmark = jt_core::kFirstHandle - handle;
  if (bookmark >= 0 && bookmark < space->table.count) {
    jt_node *const node = space->table.slots[bookmark];
    if (node != jt_core::released_slot()) return node;
  }
  jt_core::report(space, jt_core::message::kBadHandle);
  return nullptr;
}

}  // extern "C"
