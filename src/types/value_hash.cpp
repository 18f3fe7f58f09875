#include "types/value_hash.h"

#include <algorithm>
#include <array>

#include "foundation/text.h"
#include "types/enumeration.h"
#include "types/references.h"
#include "types/scalar_types.h"
#include "types/structured_types.h"

namespace jt {
namespace {

constexpr std::uint32_t mix(std::uint32_t hash, std::int32_t number) {
  hash = (hash ^ static_cast<std::uint32_t>(number)) * 2654435761U;
  return hash ^ hash >> 15U;
}

template <typename... Numbers>
constexpr std::uint32_t hash_of(Numbers... numbers) {
  std::uint32_t hash = 0;
  ((hash = mix(hash, numbers)), ...);
  return hash;
}

// Each hash takes in what the type's comparison looks at, or less.
std::uint32_t hash_fields(std::int32_t value) { return hash_of(value); }
std::uint32_t hash_fields(const Timestamp::Value &time) {
  return hash_of(time[0], time[1], time[2], time[3], time[4], time[5]);
}
std::uint32_t hash_fields(const TimeOfDay::Value &time) { return hash_of(time.hour, time.minute); }
std::uint32_t hash_fields(const Gutter::Value &gutter) {
  return hash_of(gutter.first_width, gutter.second_width);
}
std::uint32_t hash_fields(const Rectangle::Value &rectangle) {
  return hash_of(rectangle.width, rectangle.height);
}
std::uint32_t hash_fields(const Magnification::Value &magnification) {
  return hash_of(magnification.mode, magnification.first);
}
std::uint32_t hash_fields(const Borders::Value &borders) {
  const auto &margins = borders.first.margins;
  return hash_of(margins[0], margins[1], margins[3]);
}

template <typename Family>
std::uint32_t hash_flat(const jt_value *value) {
  return hash_fields(FlatType<Family>::read(value));
}

std::uint32_t hash_enumerated(const jt_value *value) {
  return hash_of(static_cast<std::int32_t>(enumerated_number(value)));
}

std::uint32_t hash_string(const jt_value *value) { return name_hash(reinterpret_cast<const char *>(value)); }

// Both kinds of reference begin with the name.
std::uint32_t hash_reference(const jt_value *value) {
  return name_hash(*reinterpret_cast<const char *const *>(value));
}

// A family is known by its comparison.
struct Hasher {
  decltype(jt_type::cmp) cmp;
  std::uint32_t (*hash)(const jt_value *value);
};

constexpr std::array kHashers = {
    Hasher{StringType::cmp, hash_string},
    Hasher{FlatType<Integer>::cmp, hash_flat<Integer>},
    Hasher{cmp_enumerated, hash_enumerated},
    Hasher{FlatType<Boolean>::cmp, hash_flat<Boolean>},
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

bool hash_value(const jt_type &type, const jt_value *value, std::uint32_t &hash) {
  if (value == nullptr || type.cmp == nullptr) return false;
  const auto *const found = std::find_if(kHashers.begin(), kHashers.end(),
                                         [&](const Hasher &hasher) { return hasher.cmp == type.cmp; });
  if (found == kHashers.end()) return false;
  hash = found->hash(value);
  return true;
}

}  // namespace jt
