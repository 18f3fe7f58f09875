#include "types/value_hash.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

#include "foundation/text.h"
#include "types/enumeration.h"
#include "types/references.h"
#include "types/scalar_types.h"
#include "types/structured_types.h"

namespace jt {
namespace {

// What the comparison of each record looks at, or less.
std::array<std::int32_t, 1> compared(std::int32_t value) { return {value}; }
const Timestamp::Value &compared(const Timestamp::Value &time) { return time; }
std::array<std::int32_t, 2> compared(const TimeOfDay::Value &time) { return {time.hour, time.minute}; }
std::array<std::int32_t, 2> compared(const Gutter::Value &gutter) {
  return {gutter.first_width, gutter.second_width};
}
std::array<std::int32_t, 2> compared(const Rectangle::Value &rectangle) {
  return {rectangle.width, rectangle.height};
}
std::array<std::int32_t, 2> compared(const Magnification::Value &magnification) {
  return {magnification.mode, magnification.first};
}
std::array<std::int32_t, 3> compared(const Borders::Value &borders) {
  const auto &margins = borders.first.margins;
  return {margins[0], margins[1], margins[3]};
}

using Hash = bool (*)(const HashKey *key, const jt_value *value, std::uint32_t &hash);

template <typename Family>
bool hash_flat(const HashKey *key, const jt_value *value, std::uint32_t &hash) {
  hash = hash_numbers(key, compared(FlatType<Family>::read(value)));
  return true;
}

// Minus zero equals zero.
bool hash_real(const HashKey *key, const jt_value *value, std::uint32_t &hash) {
  const float number = FlatType<Real>::read(value);
  if (std::isnan(number)) return false;
  hash = hash_numbers(key, compared(number == 0 ? 0 : std::bit_cast<std::int32_t>(number)));
  return true;
}

bool hash_enumerated(const HashKey *key, const jt_value *value, std::uint32_t &hash) {
  hash = hash_numbers(key, compared(static_cast<std::int32_t>(enumerated_number(value))));
  return true;
}

bool hash_string(const HashKey *key, const jt_value *value, std::uint32_t &hash) {
  hash = hash_name(key, reinterpret_cast<const char *>(value));
  return true;
}

// Both kinds of reference begin with the name.
bool hash_reference(const HashKey *key, const jt_value *value, std::uint32_t &hash) {
  hash = hash_name(key, view_of(*reinterpret_cast<const char *const *>(value)));
  return true;
}

// A family is known by its comparison.
struct Hasher {
  decltype(jt_type::cmp) cmp;
  Hash hash;
};

constexpr std::array kHashers = {
    Hasher{StringType::cmp, hash_string},
    Hasher{FlatType<Integer>::cmp, hash_flat<Integer>},
    Hasher{cmp_enumerated, hash_enumerated},
    Hasher{FlatType<Boolean>::cmp, hash_flat<Boolean>},
    Hasher{FlatType<Real>::cmp, hash_real},
    Hasher{FlatType<Timestamp>::cmp, hash_flat<Timestamp>},
    Hasher{FlatType<TimeOfDay>::cmp, hash_flat<TimeOfDay>},
    Hasher{InvocationReference::cmp, hash_reference},
    Hasher{CollectionReference::cmp, hash_reference},
    Hasher{FlatType<Rectangle>::cmp, hash_flat<Rectangle>},
    Hasher{cmp_gutter, hash_flat<Gutter>},
    Hasher{FlatType<Magnification>::cmp, hash_flat<Magnification>},
    Hasher{FlatType<Borders>::cmp, hash_flat<Borders>},
};

}  // namespace

bool hash_value(const HashKey *key, const jt_type &type, const jt_value *value, std::uint32_t &hash) {
  if (value == nullptr || type.cmp == nullptr) return false;
  const auto *const found = std::find_if(kHashers.begin(), kHashers.end(),
                                         [&](const Hasher &hasher) { return hasher.cmp == type.cmp; });
  return found != kHashers.end() && found->hash(key, value, hash);
}

}  // namespace jt
