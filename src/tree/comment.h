// Comments of nodes. A comment grows line by line and may have any length, so its block keeps its length and
// its capacity in front of the text: appending costs time linear in what is appended.
// tests/tree/comment_test.cpp
#ifndef JT_TREE_COMMENT_H
#define JT_TREE_COMMENT_H

#include <string_view>

#include "jt.h"

namespace jt_core {

// Appends to the node's comment, without a separator; false after a report.
bool append_comment(jt_parser_space &space, jt_node &node, std::string_view text);

// Hands the comment of one node, if it has one, to another, which has none.
void move_comment(jt_node &from, jt_node &to);

void release_comment(jt_node &node);

}  // namespace jt_core

#endif
