// Enumerations. All enumerations of one service share one value list, so a family has a list. A
// value is one word, the number of a name; a name that the list does not know is kept instead, behind a
// marker, so that a template written for a newer device can be read and written back unchanged.
// tests/types/enumeration_test.cpp has every list; tests/types/status_test.cpp the base list, whose values
// are statuses too.
#ifndef JT_TYPES_ENUMERATION_H
#define JT_TYPES_ENUMERATION_H

#include <cstdint>
#include <string_view>

#include "jt.h"
#include "types/type_operations.h"
#include "types/value_family.h"
#include "types/value_list.h"

namespace jt_core {

// The number of a name. One that the list does not know is warned about, and the marker stands for it.
std::uint32_t evaluate_name(jt_parser_space *space, const ValueList &list, std::string_view name);

// The name that is written for a number; empty after a report when the list has none.
std::string_view encode_number(jt_parser_space *space, const ValueList &list, std::uint32_t number);

// The text that is written for a value, which may lie in the value itself; a null view after a report when
// there is none.
std::string_view enumerated_text(jt_parser_space *space, const ValueList &list, const jt_value *value);

struct Enumeration {
  static constexpr auto kOfNulls = order_of_nulls;
  static constexpr bool kQuoted = false;
  static constexpr auto kNoMemory = message::kNoEnumeratedText;
  static ReadResult read(jt_parser_space *space, const ValueList *names, std::string_view text,
                         ValueSink &sink);
  static jt_value *copy(jt_parser_space *space, const jt_value *value, ValueSink &sink);
  static bool write(jt_parser_space *space, const ValueList *names, const jt_value *value, ValueText &text);
  static bool hash(const HashKey *secret, const jt_value *value, std::uint32_t &hash);
  static std::int32_t compare(const jt_value *a, const jt_value *b);
};

}  // namespace jt_core

#endif
