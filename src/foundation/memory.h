// Blocks of the heap. Everything that outlives a call and everything that a client receives is a block from
// here, so that one allocator can be put beneath the library and every failure is reported the same way.
#ifndef JT_FOUNDATION_MEMORY_H
#define JT_FOUNDATION_MEMORY_H

#include <cstddef>
#include <string_view>

#include "jt.h"

namespace jt {

// Where the block of a value comes from while a node is being made for it (see take_value_block).
struct BlockSource {
  void *(*take)(BlockSource &source, jt_parser_space &space, std::size_t bytes) = nullptr;
};

// A zeroed block of `bytes` bytes; null after "allocation error". Released with er_free().
void *take_block(jt_parser_space *space, std::size_t bytes);

// A zeroed block for one value. It is a block of its own, unless the session is just making a node: then the
// value is laid out where the node wants it. Every eval and copy takes exactly one block, and takes it last.
void *take_value_block(jt_parser_space *space, std::size_t bytes);

// A terminated copy, reported like take_block().
char *copy_text(jt_parser_space *space, std::string_view text);

// A terminated copy on the plain heap; null without a report.
char *copy_plain_text(std::string_view text);

}  // namespace jt

#endif
