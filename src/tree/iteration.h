// What the functions that read children at a cursor, all in iteration.cpp and exported, share with calls that
// need no cursor. tests/api/element_test.cpp
#ifndef JT_TREE_ITERATION_H
#define JT_TREE_ITERATION_H

#include "jt.h"

namespace jt_core {

// A copy of the text of a value, or of the text that stands for one of unknown type. Null after reports where
// that fails, and without one for a value that has neither and for any other node.
char *copy_text_of_value(jt_parser_space *space, const jt_node &node);

}  // namespace jt_core

#endif
