// Blocks that report their failure in one way, and the texts that are copied into them. There are two kinds:
// what is handed over to callers is released without a session and comes from malloc and calloc of the C
// library, what a session keeps comes from that session's heap.
// tests/base/memory_test.cpp has the reports, tests/faults/internal_test.cpp every allocation that fails.
#ifndef JT_BASE_MEMORY_H
#define JT_BASE_MEMORY_H

#include <cstddef>
#include <string_view>

#include "base/heap.h"
#include "jt.h"

namespace jt_core {

// ---- To be handed over: released with er_free() -----------------------------------------------------------

// A block that is not zeroed; null after "allocation error".
void *allocate_block(jt_parser_space *space, std::size_t bytes);

// A terminated copy, reported like allocate_block().
char *copy_text(jt_parser_space *space, std::string_view text);

// A terminated copy; null without a report.
char *copy_plain_text(std::string_view text);

// ---- To be kept: released by the heap that it came from ---------------------------------------------------

// A block that is not zeroed; null after "allocation error".
void *allocate_kept_block(jt_parser_space *space, Heap &heap, std::size_t bytes);

// A terminated copy, reported like allocate_kept_block().
char *keep_text(jt_parser_space *space, Heap &heap, std::string_view text);

// A terminated copy; null without a report.
char *keep_plain_text(Heap &heap, std::string_view text);

}  // namespace jt_core

#endif
