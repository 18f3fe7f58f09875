// What the catalogue tells of the values of a type: their form, and the ranges of its parts.
// tests/api/value_form_test.cpp has every type.
#ifndef JT_TYPES_VALUE_FORM_H
#define JT_TYPES_VALUE_FORM_H

#include <cstdint>

#include "jt.h"

namespace jt_core {

// The form of a type's values in the notation of jt_catalogue_form(); null for whatever has no values that the
// library knows.
const char *form_of(const jt_type *type);

// The range of that number among those of a type; false when there are not so many. Its size is not looked at.
bool find_range(const jt_type *type, std::int32_t index, jt_value_range &range);

}  // namespace jt_core

#endif
