// References to invocations and to collections. A value is a record of pointers to its texts; the texts
// follow it in the same block, so that a reference is one block like every other value.
#ifndef JT_TYPES_REFERENCES_H
#define JT_TYPES_REFERENCES_H

#include <cstddef>
#include <cstdint>

#include "jt.h"

namespace jt {

template <std::size_t Texts>
struct Reference {
  static jt_value *eval(jt_parser_space *space, char *text);
  static jt_value *copy(jt_parser_space *space, const jt_value *value);
  static char *deval(jt_parser_space *space, const jt_value *value);
  static std::int32_t cmp(jt_parser_space *space, const jt_value *a, const jt_value *b);
  static std::int32_t kill(jt_parser_space *space, jt_value *value);
};

// "name" or "name:qualifier". Reading cuts the text at its first colon.
using InvocationReference = Reference<2>;

// A name alone, colons included.
using CollectionReference = Reference<1>;

extern template struct Reference<1>;
extern template struct Reference<2>;

}  // namespace jt

#endif
