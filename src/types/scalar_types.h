// The built-in types of one or few numbers, and the string. What a family has to state is described with
// FlatType.
#ifndef JT_TYPES_SCALAR_TYPES_H
#define JT_TYPES_SCALAR_TYPES_H

#include <array>
#include <cstdint>

#include "types/flat_type.h"

namespace jt {

// An optional sign, then digits. A sign alone is 0.
struct Integer {
  using Value = std::int32_t;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(jt_parser_space *space, const char *text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t compare(Value a, Value b) { return order(a, b); }
};

// Digits with at most one point among them; neither sign nor exponent.
struct Real {
  using Value = float;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(jt_parser_space *space, const char *text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t compare(Value a, Value b) { return order(a, b); }
};

// "true" or "false", read in any case and written in capitals.
struct Boolean {
  using Value = std::int32_t;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(jt_parser_space *space, const char *text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t compare(Value a, Value b) { return order(a, b); }
};

// "year/month/day/hour/minute/second", 19 characters. The fields are held in the reverse order: second first.
struct Timestamp {
  using Value = std::array<std::int32_t, 6>;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(jt_parser_space *space, char *text, Value &value);
  static bool format(jt_parser_space *space, const Value &value, ShortText &text);
  static std::int32_t compare(const Value &a, const Value &b);
};

// "hour:minute"; what follows the minute is passed over.
struct TimeOfDay {
  struct Value {
    std::int32_t hour;
    std::int32_t minute;
  };
  static constexpr auto kOfNulls = equality_of_nulls;
  static bool parse(jt_parser_space *space, const char *text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t compare(Value a, Value b);
};

// The value is the text itself. Strings are ordered with letters folded, by the plain difference of
// lowercasecmp().
struct StringType {
  static jt_value *eval(jt_parser_space *space, char *text);
  static jt_value *copy(jt_parser_space *space, const jt_value *value);
  static char *deval(jt_parser_space *space, const jt_value *value);
  static std::int32_t cmp(jt_parser_space *space, const jt_value *a, const jt_value *b);
  static constexpr auto kill = kill_block;
};

}  // namespace jt

#endif
