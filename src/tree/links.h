// Links between nodes: lists of children, and the ring of root, section, header and header attributes. Every
// change of a link is made here, so that no order of edits leaves one that points to a released node.
//
// The root's previous sibling is its header and its next sibling its section; both point back to the root
// through their previous-sibling link. The header's parent link holds the first of its three attributes,
// which are chained as siblings and point back to the header through their first-child link.
// tests/tree/header_ring_test.cpp takes the ring apart in every order, tests/tree/linking_test.cpp the lists.
#ifndef JT_TREE_LINKS_H
#define JT_TREE_LINKS_H

#include <array>

#include "jt.h"

namespace jt_core {

// Links the child at the end. The cursor of a parent that is not started or exhausted moves to the new child.
void append_child(jt_parser_space &space, jt_node &parent, jt_node &child);

// Links the child behind the cursor (at the end when it is exhausted) and moves the cursor to it.
void insert_at_cursor(jt_parser_space &space, jt_node &parent, jt_node &child);

// Takes the node out of its place, whatever that is. A parent's cursor on it moves to the sibling before it,
// else to the one after it.
void unlink(jt_parser_space &space, jt_node &node);

// The same for a child whose parent has no index; its own links stay as they are.
void leave_list(jt_parser_space &space, jt_node &node);

// A cursor that has not started is put on the first child.
void start_cursor(jt_node &parent);

void link_header(jt_node &root, jt_node &header);
void link_header_attributes(jt_node &header, const std::array<jt_node *, 3> &attributes);
void link_section(jt_node &root, jt_node &section);

// Gives a child a name, or takes it away (null); the text is the node's own from now on.
void rename(jt_node &node, char *name);

}  // namespace jt_core

#endif
