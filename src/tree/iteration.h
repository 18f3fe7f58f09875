// Reading children with the cursor of their parent: the exported functions are in iteration.cpp. This is what
// they share with calls that need no cursor. tests/tree/iteration_test.cpp
#ifndef JT_TREE_ITERATION_H
#define JT_TREE_ITERATION_H

#include "jt.h"

namespace jt_core {

// A copy of the text of a value, or of the text that stands for one of unknown type; null after reports when
// there is none, and for any other node.
char *copy_text_of_value(jt_parser_space *space, const jt_node &node);

}  // namespace jt_core

#endif
