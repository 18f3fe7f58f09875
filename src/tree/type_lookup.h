// The type of a node in its context: which table a type name is looked up in follows from the class of the
// node and from the node that encloses it. tests/tree/type_lookup_test.cpp asks for every kind of name in
// every place.
#ifndef JT_TREE_TYPE_LOOKUP_H
#define JT_TREE_TYPE_LOOKUP_H

#include <cstdint>
#include <string_view>

#include "jt.h"

namespace jt_core {

// The look-up behind jt_get_type(). A view of nothing at all (null) stands for a name that is not there: it
// is the type of no node, and is shown as "(null)".
const jt_type *look_up_type(jt_parser_space *space, std::string_view type_name, std::int32_t node_class,
                            const jt_node *enclosing);

// The warning of a look-up that leaves the type of an invocation or an attribute unknown. An unknown type
// warns when its node is made and again when it is linked.
void report_unknown_type(jt_parser_space *space, std::int32_t node_class, std::string_view type_name);

}  // namespace jt_core

#endif
