// Bookmarks: the slot of the session's node table that a node stands in. The table itself reports nothing;
// these calls do, as part of the operation that wanted a slot or gave one back.
// tests/tree/bookmark_test.cpp has the reports, tests/tree/handle_test.cpp the handles made of bookmarks.
#ifndef JT_TREE_BOOKMARKS_H
#define JT_TREE_BOOKMARKS_H

#include <cstdint>

#include "jt.h"

namespace jt_core {

// The bookmark of the slot that now holds the node, or -1 after a report.
std::int32_t assign_bookmark(jt_parser_space *space, jt_node *node);

// 1 when the slot was live or the bookmark was refused with a report; 0 when it had been released before.
std::int32_t release_bookmark(jt_parser_space *space, std::int32_t bookmark);

}  // namespace jt_core

#endif
