// Blocks of the heap that report their failure in one way, and the texts that are copied into them. What is
// here, and the little that asks the heap by itself (arena, node table, indexes, the encoder's output), uses
// malloc, calloc, realloc and free of the C library, so whatever replaces those replaces all of it.
// tests/base/memory_test.cpp has the reports, tests/faults/internal_test.cpp every allocation that fails.
#ifndef JT_BASE_MEMORY_H
#define JT_BASE_MEMORY_H

#include <cstddef>
#include <string_view>

#include "jt.h"

namespace jt_core {

// A zeroed block of `bytes` bytes; null after "allocation error". Released with er_free().
void *allocate_block(jt_parser_space *space, std::size_t bytes);

// The same, not zeroed: for what is filled to the last byte.
void *allocate_unset_block(jt_parser_space *space, std::size_t bytes);

// A terminated copy, reported like allocate_block().
char *copy_text(jt_parser_space *space, std::string_view text);

// A terminated copy on the plain heap; null without a report.
char *copy_plain_text(std::string_view text);

}  // namespace jt_core

#endif
