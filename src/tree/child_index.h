// The children of a node by their key: blocks and attributes by name, values by what they are worth. A short
// list of children is searched one by one; a long one gets a hash table, which is kept through every edit and
// goes with the node. Both find the same child: the first with that key in the order of the list. A table
// that cannot be had only costs time.
#ifndef JT_TREE_CHILD_INDEX_H
#define JT_TREE_CHILD_INDEX_H

#include <string_view>

#include "jt.h"

namespace jt {

// The first child of that name, letters folded, or null. Average cost does not depend on the number of
// children.
jt_node *find_child(jt_node &parent, std::string_view name);

// The first child whose name is that of a node that has one.
jt_node *find_namesake(jt_node &parent, const jt_node &node);

// The first value of an attribute that its type calls equal to the given one, or null. The type is known and
// can compare. The cost is that of find_child() for every type but "real" and types of the client's own,
// whose values are compared one by one.
jt_node *find_value(jt_node &attribute, const jt_value *value);

// The first value of an attribute of unknown type that was written like this, letters folded, or null.
jt_node *find_pending_value(jt_node &attribute, std::string_view text);

// The child has been linked under the parent; it has its name or value already.
void index_child(jt_node &parent, jt_node &child);

// The child is about to leave its place, or to lose its name or value.
void unindex_child(jt_node &parent, jt_node &child);

void drop_index(jt_node &node);

}  // namespace jt

#endif
