// A family of values that are one flat record. What it has to state is its own:
//   Value      the record
//   parse      text, not empty, to record; false, after its own reports and remarks, when the text is refused
//   format     record to text; false, after its own reports, when the record has none
//   order      of two records
//   compared   the numbers that the order of two records looks at, or fewer
//   kOfNulls   what comparing with a null answers
// and everything else follows from the record's size.
// tests/types/every_type_test.cpp takes a value of each family through all operations.
#ifndef JT_TYPES_FLAT_TYPE_H
#define JT_TYPES_FLAT_TYPE_H

#include <cstdint>
#include <cstring>

#include "jt.h"
#include "types/type_operations.h"
#include "types/value_family.h"
#include "types/value_remarks.h"

namespace jt_core {

template <typename Rules>
struct FlatType : Rules {
  using Value = typename Rules::Value;
  static constexpr bool kQuoted = false;

  static Value record_of(const jt_value *value) {
    Value record;
    std::memcpy(&record, value, sizeof(record));
    return record;
  }

  static ReadResult read(jt_parser_space *space, const ValueList * /*names*/, std::string_view text,
                         ValueSink &sink) {
    if (text.empty()) return refuse_empty_text(sink, text);
    Value record{};
    if (!Rules::parse({space, sink.remarks}, text, record)) return kRefusedText;
    return made_if_there(store_value(space, sink, &record, sizeof(record)));
  }

  static jt_value *copy(jt_parser_space *space, const jt_value *value, ValueSink &sink) {
    return store_value(space, sink, value, sizeof(Value));
  }

  static bool write(jt_parser_space *space, const ValueList * /*names*/, const jt_value *value,
                    ValueText &text) {
    if (!Rules::format(space, record_of(value), text.digits)) return false;
    text.pieces[0] = text.digits.view();
    return true;
  }

  static bool hash(const HashKey *secret, const jt_value *value, std::uint32_t &hash) {
    const Value record = record_of(value);
    if constexpr (requires { Rules::is_comparable(record); }) {
      if (!Rules::is_comparable(record)) return false;
    }
    hash = hash_numbers(secret, Rules::compared(record));
    return true;
  }

  static std::int32_t compare(const jt_value *a, const jt_value *b) {
    return Rules::order(record_of(a), record_of(b));
  }
};

}  // namespace jt_core

#endif
