// Hashes of values, for finding equal ones among many: values that their type calls equal have the same hash.
// tests/types/value_hash_test.cpp shows it for every type.
#ifndef JT_TYPES_VALUE_HASH_H
#define JT_TYPES_VALUE_HASH_H

#include <cstdint>

#include "foundation/keyed_hash.h"
#include "jt.h"

namespace jt {

// With a key, or the plain hash where the key is null. False for what cannot be hashed: a null value, a real
// that is no number, which equals every other, and values of a type without a comparison or of a client's
// own.
bool hash_value(const HashKey *key, const jt_type &type, const jt_value *value, std::uint32_t &hash);

}  // namespace jt

#endif
