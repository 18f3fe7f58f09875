// Blocks of the heap that report their failure in one way, and the texts and values that are made of them.
// What is here, and the little that asks the heap by itself (the encoder's output, indexes, plain copies),
// uses malloc, calloc, realloc and free of the C library, so whatever replaces those replaces all of it.
#ifndef JT_FOUNDATION_MEMORY_H
#define JT_FOUNDATION_MEMORY_H

#include <cstddef>
#include <string_view>

#include "jt.h"

namespace jt {

// Where the block of a value comes from while a node is being made for it (see take_value_block).
struct BlockSource {
  void *(*take)(BlockSource &source, jt_parser_space &space, std::size_t bytes) = nullptr;
  std::string_view text;  // that the value is made of, if it is made of one
};

// Room for the text of one value, offered to the type that writes it. A type that takes it hands out the room
// instead of a block; whoever offered it knows that it is not to be released.
struct TextRoom {
  char *begin;
  std::size_t bytes;
};

// A zeroed block of `bytes` bytes; null after "allocation error". Released with er_free().
void *take_block(jt_parser_space *space, std::size_t bytes);

// The same, not zeroed: for what is filled to the last byte.
void *take_unset_block(jt_parser_space *space, std::size_t bytes);

// A block for one value, not zeroed. It is a block of its own, unless the session is just making a node: then
// the value is laid out where the node wants it. Every eval and copy takes exactly one block, and takes it
// last.
void *take_value_block(jt_parser_space *space, std::size_t bytes);

// A terminated copy, reported like take_block().
char *copy_text(jt_parser_space *space, std::string_view text);

// A terminated copy on the plain heap; null without a report.
char *copy_plain_text(std::string_view text);

// The text that eval was given, as it was given it: it need not be measured where a node is being made of it.
std::string_view measured(const jt_parser_space *space, const char *text);

// The room that the session offers for the text of a value with its terminator; null when it offers none, or
// less than this.
char *offered_room(const jt_parser_space *space, std::size_t bytes);

// The text of a value: in the offered room or in a block, which is reported like take_block().
char *take_value_text(jt_parser_space *space, std::size_t bytes);
char *copy_value_text(jt_parser_space *space, std::string_view text);

}  // namespace jt

#endif
