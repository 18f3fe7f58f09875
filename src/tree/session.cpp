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

}  // namespace jt_core

extern "C" {

jt_parser_space *create_parser_space(const char *label) {
  if (label == nullptr) return nullptr;
  auto *const space =
      static_cast<jt_parser_space *>(jt_core::allocate_block(nullptr, sizeof(jt_parser_space)));
  if (space == nullptr) return nullptr;
  space->label = jt_core::copy_text(nullptr, label);
  if (space->label != nullptr && jt_core::open_node_table(space->table, space->free_slots)) return space;
  er_free(space->label);
  er_free(space);
  return nullptr;
}

int32_t delete_parser_space(jt_parser_space *space) {
  if (space == nullptr) return 1;
  jt_core::destroy_registered_nodes(*space);
  jt_core::close_arena(space->arena);
  jt_core::close_node_table(space->table, space->free_slots);
  er_free(space->label);
  return er_free(space);
}

}  // extern "C"
