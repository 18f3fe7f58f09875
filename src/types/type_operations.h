// What every family of value types shares: the orders that its compare operations answer with, how a value
// becomes a block, and the report of a text that is no value of its type. A value is one block of the heap
// whose first bytes are the record of its family; it is taken with take_value_block(), once for each value
// and after everything that can refuse the text.
#ifndef JT_TYPES_TYPE_OPERATIONS_H
#define JT_TYPES_TYPE_OPERATIONS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "jt.h"

namespace jt {

// What comparing two values answers when they differ and their type knows no order, or no order for this
// pair.
constexpr std::int32_t kDifferent = -2;

template <typename Number>
constexpr std::int32_t order(Number a, Number b) {
  return a > b ? 1 : (a < b ? -1 : 0);
}

// Where at least one of two values is null: a null is the smallest value of an ordered type.
constexpr std::int32_t order_of_nulls(const jt_value *a, const jt_value *b) {
  return (a != nullptr ? 1 : 0) - (b != nullptr ? 1 : 0);
}

// The same for a type that only knows equality.
constexpr std::int32_t equality_of_nulls(const jt_value *a, const jt_value *b) {
  return a == nullptr && b == nullptr ? 0 : kDifferent;
}

constexpr bool is_absent(const char *text) { return text == nullptr || *text == '\0'; }

// A value whose block holds these bytes; null after "allocation error".
jt_value *store_value(jt_parser_space *space, const void *bytes, std::size_t count);

// The same for a text and its terminator.
jt_value *store_text(jt_parser_space *space, std::string_view text);

// Releases a value that is nothing but its block.
std::int32_t kill_block(jt_parser_space *space, jt_value *value);

// Reports a text that is no value of the named type.
void report_bad_value(jt_parser_space *space, std::string_view type_name, const char *text);

}  // namespace jt

#endif
