// The codes of what can be found in a text or a template: the name of each and how bad it is.
// tests/sil/findings_test.cpp has every row.
#ifndef JT_SIL_FINDINGS_H
#define JT_SIL_FINDINGS_H

#include <cstdint>

#include "jt.h"

namespace jt_core {

struct CodeFacts {
  std::int32_t code;
  const char *name;
  std::int32_t severity;
};

constexpr std::int32_t kCodes = JT_FINDING_IGNORE_UNUSED + 1;

// The code is one of the table's.
const CodeFacts &facts_of_code(std::int32_t code);

// A finding of a code, with the code's usual severity.
jt_finding finding_of(std::int32_t code, jt_range range);

}  // namespace jt_core

#endif
