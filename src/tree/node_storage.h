// Storage of nodes. A node, its name and its value are one piece: they are born together and mostly die
// together. What comes later (a comment, a new name, the text of an unknown status) or is too long for a
// piece is a block of the heap. This file is the only one that knows which is which.
#ifndef JT_TREE_NODE_STORAGE_H
#define JT_TREE_NODE_STORAGE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/memory.h"
#include "jt.h"

namespace jt {

// A zeroed node with room (not zeroed) for so many bytes behind its record, or without any room when they are
// too many. It is not in the node table yet. Null after "allocation error".
jt_node *take_node(jt_parser_space &space, std::size_t bytes);

// Fills the room behind a node's record, text by text; a text that does not fit becomes a block.
class NodeRoom {
 public:
  NodeRoom(jt_parser_space &space, jt_node &node);

  // A terminated copy that the node owns; null after "allocation error".
  char *place(std::string_view text);

 private:
  jt_parser_space &space_;
  jt_node &node_;
  std::size_t used_;
};

// Makes eval and copy of the library's types lay their value out behind the record of a new node, for as long
// as it lives. `evaluated` is the text that eval is about to read, empty for copy. A client's type may make
// and release whatever values it likes before it gives one, so its values are blocks of their own.
class ValuePlacement : private BlockSource {
 public:
  ValuePlacement(jt_parser_space &space, bool of_library, std::string_view evaluated);
  ~ValuePlacement();
  ValuePlacement(const ValuePlacement &) = delete;
  ValuePlacement &operator=(const ValuePlacement &) = delete;

  // The node that was taken along with the value; null when the value is a block of its own.
  jt_node *node() const { return node_; }

  // Storage for the value was wanted and could not be had.
  bool failed() const { return failed_; }

 private:
  static void *take(BlockSource &source, jt_parser_space &space, std::size_t bytes);

  jt_parser_space &space_;
  jt_node *node_ = nullptr;
  bool failed_ = false;
};

// Must be called for a node that comes to own a block (a comment, a text, a value, a status, an index): no
// other node is asked for its blocks when it is released.
void mark_owner(jt_node &node);

// The session that the node was made in.
jt_parser_space &session_of(const jt_node &node);

// Releases a text of the node and clears the field.
void release_text(jt_node &node, char *&text);

// Releases the node's value with its type, unless it goes with the node's piece.
void release_value(jt_parser_space &space, jt_node &node);

// Gives the node a status, which it owns from now on unless it is a shared one. An old one is released.
void adopt_status(jt_parser_space &space, jt_node &node, const jt_status *status);

// Releases the node with everything it owns. Its links are not looked at.
void release_node(jt_parser_space &space, jt_node *node);

// Releases all nodes of the session in that way.
void release_all_nodes(jt_parser_space &space);

}  // namespace jt

#endif
