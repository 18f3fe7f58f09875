// Enumerations. All enumerations of one service share one value list, so a family is known by its list. A
// value is one word, the number of a name; a name that the list does not know is kept instead, behind a
// marker, so that a template written for a newer device can be read and written back unchanged.
#ifndef JT_TYPES_ENUMERATION_H
#define JT_TYPES_ENUMERATION_H

#include <cstdint>
#include <string_view>

#include "jt.h"
#include "types/type_operations.h"
#include "types/value_list.h"

namespace jt {

// The number of a name. One that the list does not know is warned about, and the marker stands for it.
std::uint32_t evaluate_name(jt_parser_space *space, const ValueList &list, std::string_view name);

// The name that is written for a number; empty after a report when the list has none.
std::string_view encode_number(jt_parser_space *space, const ValueList &list, std::uint32_t number);

// The number that a value begins with.
std::uint32_t enumerated_number(const jt_value *value);

// The text that is written for a value, which may lie in the value itself; a null view after a report when
// there is none.
std::string_view enumerated_text(jt_parser_space *space, const ValueList &list, const jt_value *value);

jt_value *eval_enumerated(jt_parser_space *space, const ValueList &list, const char *text);
jt_value *copy_enumerated(jt_parser_space *space, const jt_value *value);
char *deval_enumerated(jt_parser_space *space, const ValueList &list, const jt_value *value);
std::int32_t cmp_enumerated(jt_parser_space *space, const jt_value *a, const jt_value *b);

// The operations over one list.
template <const ValueList &List>
struct Enumeration {
  static jt_value *eval(jt_parser_space *space, char *text) { return eval_enumerated(space, List, text); }
  static constexpr auto copy = copy_enumerated;
  static char *deval(jt_parser_space *space, const jt_value *value) {
    return deval_enumerated(space, List, value);
  }
  static constexpr auto cmp = cmp_enumerated;
  static constexpr auto kill = kill_block;
};

}  // namespace jt

#endif
