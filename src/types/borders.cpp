// struct_borders. What follows the first side is first tried as the name of a flip, so a second side that is
// written out always warns about a name that the scan list does not know; clients are used to that. It is no
// fault of the text, so nothing is remarked on it.
// tests/types/borders_test.cpp
#include <algorithm>
#include <array>
#include <utility>

#include "base/error_store.h"
#include "base/text.h"
#include "types/enumeration.h"
#include "types/limits.h"
#include "types/number_text.h"
#include "types/structured_types.h"
#include "types/units.h"
#include "types/value_lists.h"
#include "types/value_remarks.h"

namespace jt_core {
namespace {

constexpr std::string_view kTypeName = "struct_borders";

// Which margins of the first side change places to become the second.
struct Flip {
  std::int32_t number;
  bool first_pair;
  bool last_pair;
};

constexpr std::array<Flip, 3> kFlips = {
    {{scan::kFlipV, true, false}, {scan::kFlipH, false, true}, {scan::kFlipB, true, true}}};

const Flip *evaluate_flip(jt_parser_space *space, std::string_view text) {
  const auto number = static_cast<std::int32_t>(evaluate_name(space, kScanValues, text));
  const auto *const found =
      std::find_if(kFlips.begin(), kFlips.end(), [&](const Flip &flip) { return flip.number == number; });
  return found != kFlips.end() ? found : nullptr;
}

Borders::Side flipped(Borders::Side side, const Flip &flip) {
  auto &margins = side.margins;
  if (flip.first_pair) std::swap(margins[0], margins[1]);
  if (flip.last_pair) std::swap(margins[2], margins[3]);
  return side;
}

// Reads one side, up to the separator behind its unit or the end. `text` is the whole value, for the report.
bool read_side(Reading reading, std::string_view text, std::string_view &rest, Borders::Side &side) {
  const std::string_view begin = rest;
  for (std::int32_t &margin : side.margins) {
    if (read_field(rest, kFieldSeparator, margin)) continue;
    remark_misfit(reading, begin, rest);
    return refuse_value(reading.space, kTypeName, text);
  }
  const std::string_view unit_name = rest.substr(0, rest.find(kFieldSeparator));
  rest.remove_prefix(unit_name.size());
  return read_unit(reading, kBordersLimits, {begin, unit_name, side.margins}, side.unit);
}

// Tells a second side from what can only be meant as the name of a flip.
bool begins_with_field(std::string_view rest) {
  return rest.empty() || is_digit(rest.front()) || rest.front() == kFieldSeparator;
}

bool add_side(jt_parser_space *space, const Borders::Side &side, ShortText &text) {
  for (const std::int32_t margin : side.margins) add_field(margin, text);
  return add_unit(space, side.unit, text);
}

}  // namespace

bool Borders::parse(Reading reading, std::string_view text, Value &value) {
  std::string_view rest = text;
  if (!read_side(reading, text, rest, value.first)) return false;
  if (rest.empty()) {
    value.second = value.first;
    return true;
  }
  rest.remove_prefix(1);
  if (const Flip *const flip = evaluate_flip(reading.space, rest)) {
    value.second = flipped(value.first, *flip);
    return true;
  }
  const bool is_side = begins_with_field(rest);
  if (is_side && !read_side(reading, text, rest, value.second)) return false;
  if (is_side && rest.empty()) return true;
  remark(reading, is_side ? Remark::kMalformed : Remark::kUnknownName, rest, true);
  return refuse_value(reading.space, kTypeName, text);
}

bool Borders::format(jt_parser_space *space, const Value &value, ShortText &text) {
  if (!add_side(space, value.first, text)) return false;
  text.add("/");
  return add_side(space, value.second, text);
}

std::int32_t Borders::order(const Value &a, const Value &b) {
  const auto &left = a.first.margins;
  const auto &right = b.first.margins;
  return left[0] == right[0] && left[1] == right[1] && left[3] == right[3] ? 0 : kDifferent;
}

}  // namespace jt_core
