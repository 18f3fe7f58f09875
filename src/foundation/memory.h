// Blocks of the heap. Everything that outlives a call and everything that a client receives is a block from
// here, so that one allocator can be put beneath the library and every failure is reported the same way.
#ifndef JT_FOUNDATION_MEMORY_H
#define JT_FOUNDATION_MEMORY_H

#include <cstddef>
#include <string_view>

#include "jt.h"

namespace jt {

// A zeroed block of `bytes` bytes; null after "allocation error". Released with er_free().
void *allocate_block(jt_parser_space *space, std::size_t bytes);

// The same, not zeroed: for what is filled to the last byte.
void *allocate_unset_block(jt_parser_space *space, std::size_t bytes);

// A terminated copy, reported like allocate_block().
char *copy_text(jt_parser_space *space, std::string_view text);

// A terminated copy on the plain heap; null without a report.
char *copy_plain_text(std::string_view text);

}  // namespace jt

#endif
