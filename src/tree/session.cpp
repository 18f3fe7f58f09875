// Opening and closing a session, and the way from its parts to the whole.
#include "tree/session.h"

#include <cstddef>
#include <type_traits>

#include "base/memory.h"
#include "tree/destruction.h"

namespace jt_core {

ErrorStore &errors_of(jt_parser_space &space) {
  return space.reports != nullptr ? *space.reports : space.errors;
}

// Arenas are only ever parts of sessions.
jt_parser_space &session_of_cell(const void *cell) {
  static_assert(std::is_standard_layout_v<jt_parser_space>);
  auto *const arena = reinterpret_cast<std::byte *>(&arena_of(cell));
  return *reinterpret_cast<jt_parser_space *>(arena - offsetof(jt_parser_space, arena));
}

namespace {

// The record goes last, with the heap in it, which is not looked at any more once it has gone.
void release_session(jt_parser_space *space) {
  space->heap.release(space->label);
  space->heap.release(space);
}

}  // namespace

jt_parser_space *open_session(const char *label, const jt_allocator *allocator) {
  if (label == nullptr) return nullptr;
  Heap heap = {};
  if (allocator != nullptr) heap.allocator = *allocator;
  auto *const space = static_cast<jt_parser_space *>(heap.allocate_zeroed(sizeof(jt_parser_space)));
  if (space == nullptr) return nullptr;
  space->heap = heap;
  space->arena.heap = &space->heap;
  space->label = keep_plain_text(space->heap, label);
  if (space->label != nullptr && open_node_table(space->table, space->free_slots, space->heap)) return space;
  release_session(space);
  return nullptr;
}

}  // namespace jt_core

extern "C" {

jt_parser_space *create_parser_space(const char *label) { return jt_core::open_session(label, nullptr); }

int32_t delete_parser_space(jt_parser_space *space) {
  if (space == nullptr) return 1;
  jt_core::destroy_registered_nodes(*space);
  jt_core::close_arena(space->arena);
  jt_core::close_node_table(space->table, space->free_slots);
  jt_core::release_session(space);
  return 1;
}

}  // extern "C"
