// Opening and closing a session. The parser space itself belongs to base; a session is closed here,
// because closing it destroys the nodes that are still alive.
#include "base/memory.h"
#include "base/parser_space.h"
#include "tree/destruction.h"

extern "C" {

char *g_szCurrentLocale = nullptr;

jt_parser_space *create_parser_space(const char *label) {
  if (label == nullptr) return nullptr;
  auto *const space =
      static_cast<jt_parser_space *>(jt_core::allocate_block(nullptr, sizeof(jt_parser_space)));
  if (space == nullptr) return nullptr;
  space->label = jt_core::copy_text(nullptr, label);
  if (space->label != nullptr && jt_core::open_node_table(*space)) return space;
  er_free(space->label);
  er_free(space);
  return nullptr;
}

int32_t delete_parser_space(jt_parser_space *space) {
  if (space == nullptr) return 1;
  jt_core::destroy_registered_nodes(*space);
  jt_core::close_piece_pool(*space);
  jt_core::close_node_table(*space);
  er_free(space->label);
  return er_free(space);
}

}  // extern "C"
