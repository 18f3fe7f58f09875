// Units of length: their limits and names.
#include "types/units.h"

#include "base/error_store.h"
#include "types/enumeration.h"
#include "types/value_lists.h"

namespace jt_core {

bool read_unit(jt_parser_space *space, const WarningLimits &limits, std::string_view name,
               std::span<const std::int32_t> numbers, std::int32_t &unit) {
  unit = static_cast<std::int32_t>(evaluate_name(space, kBaseValues, name));
  const WarningLimit *const limit = find_limit(limits, unit);
  if (limit == nullptr) return false;
  const bool too_large =
      std::any_of(numbers.begin(), numbers.end(), [&](std::int32_t number) { return number > limit->most; });
  if (too_large) report(space, limit->warning);
  return true;
}

void add_field(std::int32_t number, ShortText &text) {
  text.add_number(number);
  text.add("/");
}

bool add_unit(jt_parser_space *space, std::int32_t unit, ShortText &text) {
  const std::string_view name = encode_number(space, kBaseValues, static_cast<std::uint32_t>(unit));
  if (name.empty()) report(space, message::kUnnamedUnit);
  text.add(name);
  return !name.empty();
}

}  // namespace jt_core
