// What a reader has to remark on the text of a value, told as data to whoever listens; the messages that go
// into the history are no part of it, and are the same whether anybody listens or not. The remarks on a text
// come in its order, one for each fault, and none behind the one that says why the value is refused: a
// number makes one remark at most, that of its greatest fault. Only a number that ends where it should is
// looked at for itself; of any other, what does not fit is the fault.
// tests/types/remarks_test.cpp has every remark of every type.
#ifndef JT_TYPES_REMARKS_H
#define JT_TYPES_REMARKS_H

#include <cstdint>
#include <string_view>

#include "jt.h"

namespace jt_core {

// Why a value is refused, or what of it is kept otherwise than written; and what is pointed at.
enum class Remark : std::uint8_t {
  kMalformed,    // Refused: not of the type's form. What does not fit, to the end of the text; empty where
                 // something is missing at the end.
  kOutOfRange,   // A number outside the type's limits: refused or, by types that only warn, kept. The number.
  kSaturated,    // A number beyond 32 bits, or a real beyond a single, is kept as the largest there is. Its
                 // digits.
  kTail,         // Text behind the value is passed over. That text.
  kEmptyNumber,  // No digit where a number belongs: read as 0. The place: a sign, a point, or empty.
  kImpossible,   // A date or time that no calendar has, as it is kept. The field to blame.
  kUnknownName,  // A name that the list does not know, or that is none of those that may stand there: kept or
                 // refused. The name.
  kRounded       // A real will be written back as another number than was written. The whole number.
};

// Who listens. `where` is always a part of the text that was given to the reader, even where it is empty.
struct Remarks {
  void (*add)(Remarks &remarks, Remark remark, bool refused, std::string_view where) = nullptr;
};

// For whom a text is read.
struct Reading {
  jt_parser_space *space;
  Remarks *remarks;  // null: nobody listens

  bool is_heard() const { return remarks != nullptr; }
};

// Remarks on a value that is kept or, at last, why it is refused.
inline void remark(Reading reading, Remark remark, std::string_view where, bool refused = false) {
  if (reading.is_heard()) reading.remarks->add(*reading.remarks, remark, refused, where);
}

}  // namespace jt_core

#endif
