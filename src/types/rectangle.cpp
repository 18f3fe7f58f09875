// struct_rectangle. Unlike the other types with units it refuses what lies outside its limits, and a name
// that is no unit at all.
// tests/types/rectangle_test.cpp
#include <array>

#include "base/error_store.h"
#include "types/limits.h"
#include "types/number_text.h"
#include "types/structured_types.h"
#include "types/units.h"
#include "types/value_list.h"
#include "types/value_lists.h"

namespace jt_core {
namespace {

constexpr std::string_view kTypeName = "struct_rectangle";

bool is_within(const Rectangle::Value &value, const RectangleLimit &limit) {
  return value.x <= limit.most_across && value.y <= limit.most_down && value.width >= limit.least_size &&
         value.width <= limit.most_across && value.height >= limit.least_size &&
         value.height <= limit.most_down;
}

bool read_numbers(std::string_view &text, Rectangle::Value &value) {
  return read_field(text, '/', value.x) && read_field(text, '/', value.y) &&
         read_field(text, '/', value.width) && read_field(text, '/', value.height);
}

}  // namespace

bool Rectangle::parse(jt_parser_space *space, std::string_view text, Value &value) {
  std::string_view rest = text;
  if (!read_numbers(rest, value)) return refuse_value(space, kTypeName, text);
  std::uint32_t unit = 0;
  if (!find_number(kBaseValues, rest, unit)) {
    report(space, message::kUnknownUnitName, rest);
    return false;
  }
  value.unit = static_cast<std::int32_t>(unit);
  const RectangleLimit *const limit = find_limit(kRectangleLimits, value.unit);
  if (limit == nullptr) return false;
  if (is_within(value, *limit)) return true;
  report(space, message::kRectangleRange);
  return refuse_value(space, kTypeName, text);
}

bool Rectangle::format(jt_parser_space *space, const Value &value, ShortText &text) {
  for (const std::int32_t number : {value.x, value.y, value.width, value.height}) add_field(number, text);
  return add_unit(space, value.unit, text);
}

std::int32_t Rectangle::order(const Value &a, const Value &b) {
  return a.width != b.width ? order_of(a.width, b.width) : order_of(a.height, b.height);
}

}  // namespace jt_core
