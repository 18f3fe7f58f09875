// The parser space: the one record that a session owns. The stated fields come first and in their order; the
// fields after them only serve speed.
#ifndef JT_BASE_PARSER_SPACE_H
#define JT_BASE_PARSER_SPACE_H

#include "base/error_store.h"
#include "base/keyed_hash.h"
#include "base/node_table.h"
#include "base/piece_pool.h"
#include "jt.h"

struct jt_parser_space {
  char *label;
  jt_core::NodeTable table;
  jt_core::ErrorStore errors;
  jt_core::FreeSlots free_slots;
  jt_core::PiecePool pool;
  std::int32_t linked_nodes;  // nodes that hang below another
  jt_core::HashKey hash_key;  // made when it is first wanted
  bool has_hash_key;
  bool must_visit;  // there is, or was, a node of another session or a value of a client's type
};

#endif
