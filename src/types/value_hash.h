// Hashes of values, for finding equal ones among many: values that their type calls equal have the same hash.
#ifndef JT_TYPES_VALUE_HASH_H
#define JT_TYPES_VALUE_HASH_H

#include <cstdint>

#include "jt.h"

namespace jt {

// False for a null value and for types whose values cannot be hashed: those without a comparison, those that
// a client made, and "real", where a value that is no number equals every other.
bool hash_value(const jt_type &type, const jt_value *value, std::uint32_t &hash);

}  // namespace jt

#endif
