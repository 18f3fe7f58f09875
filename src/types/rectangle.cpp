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
#include "types/value_remarks.h"

namespace jt_core {
namespace {

constexpr const char *kTypeName = "struct_rectangle";

bool is_within(const Rectangle::Value &value, const RectangleLimit &limit) {
  return value.x <= limit.most_across && value.y <= limit.most_down && value.width >= limit.least_size &&
         value.width <= limit.most_across && value.height >= limit.least_size &&
         value.height <= limit.most_down;
}

[[gnu::noinline]] void remark_sizes(Reading reading, std::string_view text, const RectangleLimit &limit) {
  const std::array<NumberRange, 4> ranges = {{{0, limit.most_across},
                                              {0, limit.most_down},
                                              {limit.least_size, limit.most_across},
                                              {limit.least_size, limit.most_down}}};
  remark_numbers(reading, text, ranges, Outside::kRefused);
}

bool read_numbers(std::string_view &text, Rectangle::Value &value) {
  return read_field(text, kFieldSeparator, value.x) && read_field(text, kFieldSeparator, value.y) &&
         read_field(text, kFieldSeparator, value.width) && read_field(text, kFieldSeparator, value.height);
}

// The limits that a unit sets; null, after a report where the base list does not know the name, for a name
// that is no unit.
const RectangleLimit *read_limit(jt_parser_space *space, std::string_view name, std::int32_t &unit) {
  std::uint32_t number = 0;
  if (!find_number(kBaseValues, name, number)) {
    report(space, message::kUnknownUnitName, name);
    return nullptr;
  }
  unit = static_cast<std::int32_t>(number);
  return find_limit(kRectangleLimits, unit);
}

}  // namespace

bool Rectangle::parse(Reading reading, std::string_view text, Value &value) {
  std::string_view rest = text;
  if (!read_numbers(rest, value)) return refuse_misfit(reading, kTypeName, text, rest);
  const RectangleLimit *const limit = read_limit(reading.space, rest, value.unit);
  if (limit == nullptr) {
    remark_unfit_name(reading, text, rest);
    return false;
  }
  if (reading.is_heard()) remark_sizes(reading, text, *limit);
  if (is_within(value, *limit)) return true;
  report(reading.space, message::kRectangleRange);
  return refuse_value(reading.space, kTypeName, text);
}

bool Rectangle::format(jt_parser_space *space, const Value &value, ShortText &text) {
  for (const std::int32_t number : {value.x, value.y, value.width, value.height}) add_field(number, text);
  return add_unit(space, value.unit, text);
}

std::int32_t Rectangle::order(const Value &a, const Value &b) {
  return a.width != b.width ? order_of(a.width, b.width) : order_of(a.height, b.height);
}

}  // namespace jt_core
