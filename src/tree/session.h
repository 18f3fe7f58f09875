// The parser space: the one record that a session owns, and with it all nodes. The fields that clients may rely on come
// first and in their order; those after them only serve speed. tests/tree/session_test.cpp holds the order,
// and what opening and closing a session does.
#ifndef JT_TREE_SESSION_H
#define JT_TREE_SESSION_H

#include <cstdint>

#include "base/arena.h"
#include "base/error_store.h"
#include "base/heap.h"
#include "base/keyed_hash.h"
#include "base/node_table.h"
#include "jt.h"

struct jt_parser_space {
  char *label;
  jt_core::NodeTable table;
  jt_core::ErrorStore errors;
  jt_core::FreeSlots free_slots;
  jt_core::Arena arena;
  jt_core::Heap heap;         // of all of it, this record included
  std::int32_t linked_nodes;  // nodes that hang below another
  jt_core::HashKey hash_key;  // made when it is first wanted
  bool has_hash_key;
  jt_core::ErrorStore *reports;  // where reports go; null: to its own errors
  bool has_lost_index;           // an index could not be had for want of memory
  bool is_listened_to;           // a listener is being called
  bool bulk_release_unsafe;      // there is, or was, a node of another session or a value of a client's type
};

namespace jt_core {

// Opens a session that takes what it keeps from the allocator; null: from the heap of the C library. Null
// without memory, or without a label.
jt_parser_space *open_session(const char *label, const jt_allocator *allocator);

// The session of a cell that was allocated in its arena.
jt_parser_space &session_of_cell(const void *cell);

}  // namespace jt_core

#endif
