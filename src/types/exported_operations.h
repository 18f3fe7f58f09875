// The five operations of an exported descriptor, from what its family does: `eval`, `copy` and `deval` make
// blocks of the heap, as clients expect, and all of them have an answer to null.
// tests/types/every_type_test.cpp gives null to each of them.
#ifndef JT_TYPES_EXPORTED_OPERATIONS_H
#define JT_TYPES_EXPORTED_OPERATIONS_H

#include "jt.h"
#include "types/value_family.h"

namespace jt_core {

jt_value *eval_value(const ValueFamily &family, jt_parser_space *space, char *text);
[[gnu::noinline]] jt_value *copy_value(const ValueFamily &family, jt_parser_space *space,
                                       const jt_value *value);
char *deval_value(const ValueFamily &family, jt_parser_space *space, const jt_value *value);
std::int32_t compare_values(const ValueFamily &family, const jt_value *a, const jt_value *b);
std::int32_t kill_value(const ValueFamily &family, jt_parser_space *space, jt_value *value);

// `kill` of a family that has nothing to say about null.
std::int32_t kill_block(jt_parser_space *space, jt_value *value);

template <const ValueFamily &Family>
struct ExportedOperations {
  static jt_value *eval(jt_parser_space *space, char *text) { return eval_value(Family, space, text); }
  static jt_value *copy(jt_parser_space *space, const jt_value *value) {
    return copy_value(Family, space, value);
  }
  static char *deval(jt_parser_space *space, const jt_value *value) {
    return deval_value(Family, space, value);
  }
  static std::int32_t cmp(jt_parser_space * /*space*/, const jt_value *a, const jt_value *b) {
    return compare_values(Family, a, b);
  }
  static std::int32_t kill(jt_parser_space *space, jt_value *value) {
    return kill_value(Family, space, value);
  }
};

}  // namespace jt_core

#endif
