// Storage of nodes. A node, its name and its value are one cell of the arena: they are made together and
// mostly go together. What comes later (a comment, a new name, the text of an unknown status) or is too long
// for a cell is a block of the heap. This file is the only one that knows which is which.
// tests/tree/construction_test.cpp makes nodes on both sides of that limit, tests/tree/client_type_test.cpp
// counts what a client's type releases.
#ifndef JT_TREE_NODE_STORAGE_H
#define JT_TREE_NODE_STORAGE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "jt.h"
#include "types/value_family.h"

namespace jt_core {

// A zeroed node with space (not zeroed) for so many bytes behind its record, or without any when they are too
// many. It is not in the node table yet. Null after "allocation error".
jt_node *allocate_node(jt_parser_space &space, std::size_t bytes);

// Fills the space behind a node's record, text by text; a text that does not fit becomes a block.
class InlineStorage {
 public:
  InlineStorage(jt_parser_space &space, jt_node &node);

  // A terminated copy that the node owns; null after "allocation error".
  char *place(std::string_view text);

 private:
  jt_parser_space &space_;
  jt_node &node_;
  std::size_t used_;
};

// Lays the value of a new node out behind the record of that node, which is made along with it; a value that
// is too long becomes a block of its own and the node stays null.
struct NodeSink : ValueSink {
  NodeSink();

  jt_node *node = nullptr;
};

// Must be called for a node that comes to own a block (a comment, a text, a value, a status, an index): only
// nodes with this flag are asked for their blocks when they are released.
void set_owns_heap_blocks(jt_node &node);

// Gives a node a value that is a block of its own. It is released by the heap of the node's session when that
// keeps it, else by the type.
enum class ReleasedBy : std::uint8_t { kHeap, kType };
void adopt_value(jt_node &node, jt_value *value, ReleasedBy owner);

// Releases a value that no node has.
void release_value(jt_parser_space &space, Heap &heap, const jt_type &type, jt_value *value,
                   ReleasedBy owner);

// The session that the node was made in, and its heap: what the node keeps comes from there, whatever session
// the tree belongs to.
jt_parser_space &session_of(const jt_node &node);
[[gnu::noinline]] Heap &heap_of(const jt_node &node);

// Releases a text of the node and clears the field.
void release_text(jt_node &node, char *&text);

// Releases the node's value, unless it goes with the node's cell.
void release_value(jt_parser_space &space, jt_node &node);

// Gives the node a status, which it keeps from now on unless it is a shared one. An old one is released.
void adopt_status(jt_node &node, const jt_status *status);

// Releases the node with everything it owns. Its links are not looked at.
void release_node(jt_parser_space &space, jt_node *node);

// Releases all nodes of the session in that way.
void release_all_nodes(jt_parser_space &space);

}  // namespace jt_core

#endif
