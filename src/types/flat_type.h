// The five operations of a type whose value is one flat record. A family states what is its own:
//   Value      the record
//   parse      text, not empty, to record; false, after its own reports, when the text is refused
//   format     record to text; false, after its own reports, when the record has none
//   compare    the order of two records
//   kOfNulls   what comparing with a null answers
// and everything else follows from the record's size.
#ifndef JT_TYPES_FLAT_TYPE_H
#define JT_TYPES_FLAT_TYPE_H

#include <cstdint>
#include <cstring>

#include "foundation/memory.h"
#include "jt.h"
#include "types/short_text.h"
#include "types/type_operations.h"

namespace jt {

template <typename Family>
struct FlatType {
  using Value = typename Family::Value;

  static Value read(const jt_value *value) {
    Value record;
    std::memcpy(&record, value, sizeof(record));
    return record;
  }

  static jt_value *eval(jt_parser_space *space, char *text) {
    Value record{};
    if (is_absent(text) || !Family::parse(space, text, record)) return nullptr;
    return store_value(space, &record, sizeof(record));
  }

  static jt_value *copy(jt_parser_space *space, const jt_value *value) {
    return value != nullptr ? store_value(space, value, sizeof(Value)) : nullptr;
  }

  static char *deval(jt_parser_space *space, const jt_value *value) {
    ShortText text;
    if (value == nullptr || !Family::format(space, read(value), text)) return nullptr;
    return copy_value_text(space, text.view());
  }

  static std::int32_t cmp(jt_parser_space * /*space*/, const jt_value *a, const jt_value *b) {
    if (a == nullptr || b == nullptr) return Family::kOfNulls(a, b);
    return Family::compare(read(a), read(b));
  }

  static constexpr auto kill = kill_block;
};

}  // namespace jt

#endif
