// Units of length: their limits and names.
#include "types/units.h"

#include "base/error_store.h"
#include "types/enumeration.h"
#include "types/value_lists.h"
#include "types/value_remarks.h"

namespace jt_core {

bool read_unit(Reading reading, const WarningLimits &limits, const Measures &measures, std::int32_t &unit) {
  unit = static_cast<std::int32_t>(evaluate_name(reading.space, kBaseValues, measures.unit_name));
  const WarningLimit *const limit = find_limit(limits, unit);
  if (limit == nullptr) {
    remark_unfit_name(reading, measures.text, measures.unit_name);
    return false;
  }
  if (reading.is_heard()) remark_fields(reading, measures.text, measures.unit_name, {0, limit->most});
  const bool too_large = std::any_of(measures.numbers.begin(), measures.numbers.end(),
                                     [&](std::int32_t number) { return number > limit->most; });
  if (too_large) report(reading.space, limit->warning);
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
