// Opaque handles: what clients hold instead of nodes. A handle is computed from the bookmark, so it is never
// a valid pointer, never positive, and resolves in constant time.
#include "base/parser_space.h"
#include "tree/node.h"

namespace {

constexpr std::int64_t kFirstHandle = -100;

}  // namespace

extern "C" {

int32_t bookmark_to_opaque(int32_t bookmark) { return static_cast<int32_t>(kFirstHandle - bookmark); }

jt_node *opaque_to_node(jt_parser_space *space, int32_t handle) {
  if (space == nullptr) return nullptr;
  const std::int64_t bookmark = kFirstHandle - handle;
  if (bookmark >= 0 && bookmark < space->table.count) {
    jt_node *const node = space->table.slots[bookmark];
    if (node != jt_core::released_slot()) return node;
  }
  jt_core::report(space, jt_core::message::kBadHandle);
  return nullptr;
}

}  // extern "C"
