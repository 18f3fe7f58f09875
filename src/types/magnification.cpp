// struct_magnification. The mode is a name of the scan list; how many percentages follow it is the mode's
// own.
// tests/types/magnification_test.cpp
#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "base/error_store.h"
#include "types/enumeration.h"
#include "types/number_text.h"
#include "types/structured_types.h"
#include "types/value_lists.h"
#include "types/value_remarks.h"

namespace jt_core {
namespace {

struct Mode {
  std::int32_t number;
  std::size_t percentages;
};

constexpr std::array<Mode, 5> kModes = {
    {{scan::kNone, 0}, {scan::kAutoIso, 0}, {scan::kAutoAna, 0}, {scan::kManIso, 1}, {scan::kManAna, 2}}};

const Mode *find_mode(std::int32_t number) {
  const auto *const found =
      std::find_if(kModes.begin(), kModes.end(), [&](const Mode &mode) { return mode.number == number; });
  return found != kModes.end() ? found : nullptr;
}

// The percentages behind a mode.
struct Percentages {
  std::array<std::int32_t, 2> numbers;
  std::size_t count;

  std::span<const std::int32_t> read() const { return std::span(numbers).first(count); }
};

// False when something else than one or two numbers stands there.
bool read_percentages(std::string_view text, Percentages &percentages) {
  percentages.count = 1;
  if (read_field(text, kFieldSeparator, percentages.numbers[0])) {
    percentages.numbers[1] = read_number(text);
    percentages.count = 2;
  }
  return text.empty();
}

bool is_in_range(std::int32_t percentage) { return kPercentage.has(percentage); }

}  // namespace

// Reports show the mode alone.
bool Magnification::parse(Reading reading, std::string_view text, Value &value) {
  const std::string_view mode_name = text.substr(0, text.find(kFieldSeparator));
  value.mode = static_cast<std::int32_t>(evaluate_name(reading.space, kScanValues, mode_name));
  Percentages percentages{};
  const bool well_formed =
      mode_name.size() == text.size() || read_percentages(text.substr(mode_name.size() + 1), percentages);
  const Mode *const mode = find_mode(value.mode);
  const std::size_t expected = mode != nullptr ? mode->percentages : kNoMode;
  const bool fits = well_formed && percentages.count == expected;
  const auto numbers = percentages.read();
  if (!fits || !std::all_of(numbers.begin(), numbers.end(), is_in_range)) {
    remark_magnification(reading, text, expected);
    if (fits) report(reading.space, message::kMagnificationRange);
    return refuse_value(reading.space, "struct_magnification", mode_name);
  }
  if (!numbers.empty()) {
    value.first = numbers.front();
    value.second = numbers.back();
  }
  return true;
}

void Magnification::cut(char *text, ReadStatus /*status*/) {
  char *const separator = std::strchr(text, kFieldSeparator);
  if (separator != nullptr) *separator = '\0';
}

bool Magnification::format(jt_parser_space *space, const Value &value, ShortText &text) {
  const std::string_view name = encode_number(space, kScanValues, static_cast<std::uint32_t>(value.mode));
  text.add(name);
  const Mode *const mode = find_mode(value.mode);
  const Percentages percentages = {{value.first, value.second}, mode != nullptr ? mode->percentages : 0};
  for (const std::int32_t percentage : percentages.read()) {
    text.add("/");
    text.add_number(percentage);
  }
  return !name.empty();
}

std::array<std::int32_t, 3> Magnification::compared(const Value &value) {
  return {value.mode, value.first, value.mode == scan::kManIso ? 0 : value.second};
}

// With one percentage there is an order; otherwise values are equal or not.
std::int32_t Magnification::order(const Value &a, const Value &b) {
  if (a.mode != b.mode) return kDifferent;
  if (a.mode == scan::kManIso) return order_of(a.first, b.first);
  return a.first == b.first && a.second == b.second ? 0 : kDifferent;
}

}  // namespace jt_core
