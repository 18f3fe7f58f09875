// The children of a node by their key: blocks and attributes by name, values by equality under their type.
//
// Most lists are short, and a search one by one through a dozen children is as fast as a table and needs no
// memory. So a list has no index at first. A search that has passed more than 12 children builds one: a list
// that is only written and read in order never pays for it, however long it is. The index is kept through
// every edit and goes with the node. With it or without, the same child is found: the first with that key in
// the order of the list. An index that cannot be had, for want of memory or because a value has no hash, only
// costs time; a decode that has none for want of memory ends, as each further child would take longer.
//
// The cost of a search or an edit does not grow with the number of children, however their keys were chosen
// (child_index.cpp says how), but for a logarithm where many of them are equal.
// tests/tree/child_lookup_test.cpp and tests/tree/equal_values_test.cpp compare every answer with a plain
// list, tests/tree/crafted_keys_test.cpp has keys that were chosen to collide.
#ifndef JT_TREE_CHILD_INDEX_H
#define JT_TREE_CHILD_INDEX_H

#include <string_view>

#include "jt.h"

namespace jt_core {

// The first child of that name, letters folded, or null.
jt_node *find_child(jt_node &parent, std::string_view name);

// The first child whose name is that of a node that has one and hangs nowhere yet.
jt_node *find_namesake(jt_node &parent, const jt_node &node);

// The first value of an attribute that its type calls equal to the given one, or null. The type is known and
// can compare. Values of a client's own type are compared one by one, and so are reals where one of them is
// no number.
jt_node *find_value(jt_node &attribute, const jt_value *value);

// The first value of an attribute of unknown type that was written like this, letters folded, or null.
jt_node *find_pending_value(jt_node &attribute, std::string_view text);

// The child has been linked under the parent; it has its name or value already.
void index_child(jt_node &parent, jt_node &child);

// The child is about to leave its place, or to lose its name or value.
void unindex_child(jt_node &parent, jt_node &child);

// Does without an index; the children stay.
void drop_index(jt_node &parent);

// Releases the index of a node whose children have gone or are about to.
void release_index(jt_node &parent);

}  // namespace jt_core

#endif
