// Taking nodes out of the tree and out of the table. Nothing here recurses: subtrees and connected structures
// of any shape and depth are walked in a loop. A template that is all that its session holds is not walked:
// its nodes go at once. tests/tree/destruction_test.cpp and tests/tree/header_ring_test.cpp destroy in every
// order, tests/tree/large_tree_test.cpp on almost no stack.
#ifndef JT_TREE_DESTRUCTION_H
#define JT_TREE_DESTRUCTION_H

#include "jt.h"

namespace jt_core {

// Destroys every node of the session, whatever its links say.
void destroy_registered_nodes(jt_parser_space &space);

}  // namespace jt_core

#endif
