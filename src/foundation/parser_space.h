// The parser space: the one record that a session owns. The stated fields come first and in their order; the
// fields after them only serve speed.
#ifndef JT_FOUNDATION_PARSER_SPACE_H
#define JT_FOUNDATION_PARSER_SPACE_H

#include "foundation/error_store.h"
#include "foundation/keyed_hash.h"
#include "foundation/node_table.h"
#include "foundation/piece_pool.h"
#include "jt.h"

struct jt_parser_space {
  char *label;
  jt::NodeTable table;
  jt::ErrorStore errors;
  jt::FreeSlots free_slots;
  jt::PiecePool pool;
  std::int32_t linked_nodes;  // nodes that hang below another
  jt::HashKey hash_key;       // made when it is first wanted
  bool has_hash_key;
  bool must_visit;  // there is, or was, a node of another session or a value of a client's type
};

#endif
