// Making nodes. A node is made whole or not at all, and stands in the node table from then on; linking it
// into a tree is a separate step. tests/tree/construction_test.cpp and tests/tree/value_node_test.cpp;
// tests/faults/internal_test.cpp lets every allocation fail.
#ifndef JT_TREE_CONSTRUCTION_H
#define JT_TREE_CONSTRUCTION_H

#include <cstdint>
#include <string_view>

#include "jt.h"
#include "types/value_family.h"

namespace jt_core {

// A node of a type that has been looked up already. The type name is kept only for the unknown type; a null
// one leaves the node without.
jt_node *make_typed_node(jt_parser_space &space, const jt_type *type, const char *type_name,
                         std::string_view name, std::int32_t node_class);

// An attribute of a header: the text itself, a string, is its value.
jt_node *make_header_attribute(jt_parser_space &space, std::string_view name, std::string_view text);

// Whether a value node was made; a text that its type refuses is not a failure of the session.
enum class CreateStatus { kMade, kRefused, kNoMemory };

struct ValueResult {
  CreateStatus status;
  jt_node *node;
};

// A value node from a text, of which whoever listens hears what its reader remarks. The type is unknown, or one of the library's with its family; a type without a
// family (a kind of block) refuses every text.
ValueResult make_value_node(jt_parser_space &space, const jt_type *type, const ValueFamily *family,
                            std::string_view text, Remarks *remarks = nullptr);

}  // namespace jt_core

#endif
