// The built-in types of one or few numbers, and the string. What a family has to state is described with
// FlatType. tests/types/integer_test.cpp, tests/types/real_test.cpp and the files beside them have one type
// each.
#ifndef JT_TYPES_SCALAR_TYPES_H
#define JT_TYPES_SCALAR_TYPES_H

#include <array>
#include <cstdint>

#include "types/flat_type.h"

namespace jt_core {

// An optional sign, then digits. A sign alone is 0.
struct Integer {
  using Value = std::int32_t;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t order(Value a, Value b) { return order_of(a, b); }
  static std::array<std::int32_t, 1> compared(Value value) { return {value}; }
};

// Digits with at most one point among them; neither sign nor exponent.
struct Real {
  using Value = float;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t order(Value a, Value b) { return order_of(a, b); }
  // A value that is no number equals every other.
  static bool is_comparable(Value value) { return value == value; }
  static std::array<std::int32_t, 1> compared(Value value);
};

// "true" or "false", read in any case and written in capitals.
struct Boolean {
  using Value = std::int32_t;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t order(Value a, Value b) { return order_of(a, b); }
  static std::array<std::int32_t, 1> compared(Value value) { return {value}; }
};

// "year/month/day/hour/minute/second", 19 characters. The fields are held in the reverse order: second first.
struct Timestamp {
  using Value = std::array<std::int32_t, 6>;
  static constexpr auto kOfNulls = order_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, const Value &value, ShortText &text);
  static std::int32_t order(const Value &a, const Value &b);
  static const Value &compared(const Value &value) { return value; }
  static void cut(char *text, ReadStatus status);
};

// "hour:minute"; what follows the minute is passed over.
struct TimeOfDay {
  struct Value {
    std::int32_t hour;
    std::int32_t minute;
  };
  static constexpr auto kOfNulls = equality_of_nulls;
  static bool parse(Reading reading, std::string_view text, Value &value);
  static bool format(jt_parser_space *space, Value value, ShortText &text);
  static std::int32_t order(Value a, Value b);
  static std::array<std::int32_t, 2> compared(Value value) { return {value.hour, value.minute}; }
};

// The value is the text itself. Strings are ordered with letters folded, by the plain difference of
// lowercasecmp().
struct StringType {
  static constexpr bool kQuoted = true;
  static ReadResult read(jt_parser_space *space, const ValueList *names, std::string_view text,
                         ValueSink &sink);
  static jt_value *copy(jt_parser_space *space, const jt_value *value, ValueSink &sink);
  static bool write(jt_parser_space *space, const ValueList *names, const jt_value *value, ValueText &text);
  static bool hash(const HashKey *secret, const jt_value *value, std::uint32_t &hash);
  static std::int32_t compare(const jt_value *a, const jt_value *b);
  static constexpr auto kOfNulls = order_of_nulls;
};

}  // namespace jt_core

#endif
