// The orders that comparisons answer with, and the report of a text that is no value of its type.
// tests/types/every_type_test.cpp
#ifndef JT_TYPES_TYPE_OPERATIONS_H
#define JT_TYPES_TYPE_OPERATIONS_H

#include <cstdint>
#include <string_view>

#include "base/error_store.h"
#include "jt.h"

namespace jt_core {

// What comparing two values answers when they differ and their type knows no order, or no order for this
// pair.
constexpr std::int32_t kDifferent = -2;

template <typename Number>
constexpr std::int32_t order_of(Number a, Number b) {
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

// Reports a text that is no value of the named type; false.
[[gnu::noinline]] bool refuse_value(jt_parser_space *space, std::string_view type_name,
                                    std::string_view text);

}  // namespace jt_core

#endif
