// The type of a node in its context: which table a type name is looked up in follows from the class of the
// node and from the node that encloses it. The look-up itself is the exported jt_get_type().
#ifndef JT_TREE_TYPE_LOOKUP_H
#define JT_TREE_TYPE_LOOKUP_H

#include <cstdint>

#include "jt.h"

namespace jt {

// The warning of a look-up that leaves the type of an invocation or an attribute unknown. An unknown type
// warns when its node is made and again when it is linked.
void report_unknown_type(jt_parser_space *space, std::int32_t node_class, const char *type_name);

}  // namespace jt

#endif
