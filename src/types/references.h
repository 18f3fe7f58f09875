// References to invocations and to collections. A value is a record of pointers to its texts; the texts
// follow it in the same block, so that a reference is one block like every other value.
// tests/types/reference_test.cpp
#ifndef JT_TYPES_REFERENCES_H
#define JT_TYPES_REFERENCES_H

#include <cstddef>
#include <cstdint>

#include "base/messages.h"
#include "jt.h"
#include "types/type_operations.h"
#include "types/value_family.h"

namespace jt_core {

template <std::size_t Texts>
struct Reference {
  static constexpr auto kOfNulls = equality_of_nulls;
  static constexpr bool kQuoted = false;
  static ReadResult read(jt_parser_space *space, const ValueList *names, std::string_view text,
                         ValueSink &sink);
  static jt_value *copy(jt_parser_space *space, const jt_value *value, ValueSink &sink);
  static bool write(jt_parser_space *space, const ValueList *names, const jt_value *value, ValueText &text);
  static bool hash(const HashKey *secret, const jt_value *value, std::uint32_t &hash);
  static std::int32_t compare(const jt_value *a, const jt_value *b);
};

extern template struct Reference<1>;
extern template struct Reference<2>;

// "name" or "name:qualifier". Reading cuts the text at its first colon.
struct InvocationReference : Reference<2> {
  static constexpr const char *kNullToKill = message::kNullInvocationReference;
  static void cut(char *text, ReadStatus status);
};

// A name alone, colons included.
struct CollectionReference : Reference<1> {
  static constexpr const char *kNullToKill = message::kNullCollectionReference;
};

}  // namespace jt_core

#endif
