// Effects that several calls share once the frame has found their node. tests/api/attribute_add_test.cpp
// counts the nodes after a refusal.
#ifndef JT_API_NODE_EFFECTS_H
#define JT_API_NODE_EFFECTS_H

#include <cstdint>
#include <string_view>

#include "jt.h"
#include "tree/node_storage.h"

namespace jt_core {

// A copy of the name of the node's type; the caller's name for the node goes into the report of a failure.
char *copy_type_name(jt_parser_space *space, const jt_node &node, const char *node_name);

// Links a node that was just made with one of the add_ operations, or destroys it. A null node has been
// reported.
using AddOperation = int32_t (*)(jt_parser_space *space, jt_node *parent, jt_node *child);
std::int32_t add_or_destroy(jt_parser_space *space, jt_node &parent, jt_node *node, AddOperation add);

// Puts the value in the place of the one that a value node of a known type holds.
void replace_value(jt_parser_space &space, jt_node &attribute, jt_node &stored, jt_value *value,
                   ReleasedBy owner);

// The handle of a node; 0 for null, and for a node of another session, whose handle means another node here.
std::int32_t handle_of(const jt_parser_space *space, const jt_node *node);

// Records why a call fails.
std::int32_t refuse(jt_parser_space *space, const char *message, std::string_view detail = {});

}  // namespace jt_core

#endif
