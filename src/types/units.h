// Units of length as structured types use them: a name of the base list that is one of three, each with the
// type's own limits. tests/types/gutter_test.cpp and tests/types/rectangle_test.cpp go to the limits of each
// unit.
#ifndef JT_TYPES_UNITS_H
#define JT_TYPES_UNITS_H

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "jt.h"
#include "types/remarks.h"
#include "types/short_text.h"

namespace jt_core {

// The largest number that goes without a warning.
struct WarningLimit {
  std::int32_t unit;
  std::int32_t most;
  std::string_view warning;
};

using WarningLimits = std::array<WarningLimit, 3>;

template <typename Limits>
const auto *find_limit(const Limits &limits, std::int32_t unit) {
  const auto *const found =
      std::find_if(limits.begin(), limits.end(), [&](const auto &limit) { return limit.unit == unit; });
  return found != limits.end() ? found : nullptr;
}

// What a unit is behind, and its name.
struct Measures {
  std::string_view text;  // the fields, the name, and all that follows
  std::string_view unit_name;
  std::span<const std::int32_t> numbers;
};

// Evaluates a unit and tests the numbers in front of it; numbers that are too large are warned about once, but
// each of them is remarked on. False when the name is no unit, after a warning when it is no name of the base
// list at all.
bool read_unit(Reading reading, const WarningLimits &limits, const Measures &measures, std::int32_t &unit);

// Adds "number/", or the name of a unit; false after reports when the unit has none.
void add_field(std::int32_t number, ShortText &text);
bool add_unit(jt_parser_space *space, std::int32_t unit, ShortText &text);

}  // namespace jt_core

#endif
