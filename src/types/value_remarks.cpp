// Going over a text again, for its remarks.
#include "types/value_remarks.h"

#include <array>
#include <cmath>

#include "base/text.h"
#include "types/number_text.h"
#include "types/short_text.h"
#include "types/type_operations.h"

namespace jt_core {
namespace {

// Takes the number, and a character behind it, off the front.
bool remark_number(Reading reading, std::string_view &text, NumberRange range, Outside outside) {
  const char *const begin = text.data();
  const std::int64_t number = read_magnitude(text);
  const std::string_view digits(begin, static_cast<std::size_t>(text.data() - begin));
  if (!text.empty()) text.remove_prefix(1);
  const bool fits = range.has(number);
  if (!fits && outside == Outside::kRefused) {
    remark(reading, Remark::kOutOfRange, digits, true);
    return false;
  }
  if (digits.empty()) {
    remark(reading, Remark::kEmptyNumber, digits);
  } else if (number > std::numeric_limits<std::int32_t>::max()) {
    remark(reading, Remark::kSaturated, digits);
  } else if (!fits) {
    remark(reading, outside == Outside::kImpossible ? Remark::kImpossible : Remark::kOutOfRange, digits);
  }
  return true;
}

// A decimal without the zeros that mean nothing: the same text for the same number.
std::string_view significant(std::string_view decimal) {
  const auto *begin = decimal.begin();
  const auto *end = decimal.end();
  while (begin != end && *begin == '0') ++begin;
  if (decimal.find('.') != std::string_view::npos) {
    while (end[-1] == '0') --end;
    if (end[-1] == '.') --end;
  }
  return {begin, static_cast<std::size_t>(end - begin)};
}

// Of a month that there is not: 31.
std::int32_t days_in_month(std::int32_t year, std::int32_t month) {
  constexpr std::int32_t kFebruary = 2;
  const bool is_leap_year = year % (year % 100 == 0 ? 400 : 4) == 0;
  if (month == kFebruary) return is_leap_year ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

}  // namespace

bool remark_numbers(Reading reading, std::string_view text, std::span<const NumberRange> ranges,
                    Outside outside) {
  for (const NumberRange range : ranges) {
    if (!remark_number(reading, text, range, outside)) return false;
  }
  return true;
}

void remark_fields(Reading reading, std::string_view text, std::string_view rest, NumberRange range) {
  text = text.substr(0, static_cast<std::size_t>(rest.data() - text.data()));
  while (text.find(kFieldSeparator) != std::string_view::npos) {
    remark_number(reading, text, range, Outside::kWarned);
  }
}

void remark_misfit(Reading reading, std::string_view text, std::string_view rest) {
  remark_fields(reading, text, rest);
  remark(reading, Remark::kMalformed, rest, true);
}

void remark_unfit_name(Reading reading, std::string_view text, std::string_view name) {
  remark_fields(reading, text, name);
  if (!name.empty()) return remark(reading, Remark::kUnknownName, name, true);
  const std::string_view rest = text.substr(static_cast<std::size_t>(name.data() - text.data()));
  remark(reading, Remark::kMalformed, rest, true);
}

void remark_integer(Reading reading, std::string_view text, bool is_saturated) {
  if (!is_digit(text.back())) return remark(reading, Remark::kEmptyNumber, text);
  if (!is_digit(text.front())) text.remove_prefix(1);
  if (is_saturated) remark(reading, Remark::kSaturated, text);
}

void remark_real(Reading reading, std::string_view text, float value) {
  if (text.size() == 1 && !is_digit(text.front())) return remark(reading, Remark::kEmptyNumber, text);
  if (std::isinf(value)) return remark(reading, Remark::kSaturated, text);
  std::array<char, 64> buffer;
  if (significant(text) != significant(write_real(buffer, value))) remark(reading, Remark::kRounded, text);
}

void remark_calendar(Reading reading, std::string_view text, std::int32_t year, std::int32_t month) {
  const std::array<NumberRange, 6> possible = {
      {{}, {1, 12}, {1, days_in_month(year, month)}, {0, 23}, {0, 59}, {0, 59}}};
  remark_numbers(reading, text, possible, Outside::kImpossible);
}

void remark_time(Reading reading, std::string_view text) {
  if (!remark_numbers(reading, text, kTimeRanges, Outside::kRefused)) return;
  read_number(text);
  text.remove_prefix(1);
  read_number(text);
  if (!text.empty()) remark(reading, Remark::kTail, text);
}

void remark_magnification(Reading reading, std::string_view text, std::size_t percentages) {
  const std::string_view mode = text.substr(0, text.find(kFieldSeparator));
  if (percentages == kNoMode) return remark_unfit_name(reading, text, mode);
  std::string_view rest = text;
  rest.remove_prefix(mode.size());
  for (; percentages > 0 && rest.starts_with(kFieldSeparator); --percentages) {
    rest.remove_prefix(1);
    read_number(rest);
  }
  if (percentages > 0 || !rest.empty()) return remark(reading, Remark::kMalformed, rest, true);
  constexpr std::array kRanges = {kPercentage, kPercentage};
  text.remove_prefix(mode.size() + 1);
  remark_numbers(reading, text, kRanges, Outside::kRefused);
}

ReadResult refuse_empty_text(const ValueSink &sink, std::string_view text) {
  remark({nullptr, sink.remarks}, Remark::kMalformed, text, true);
  return kRefusedText;
}

void report_misfit(Reading reading, const char *type_name, std::string_view text, const char *misfit) {
  remark_misfit(reading, text, {misfit, static_cast<std::size_t>(text.end() - misfit)});
  refuse_value(reading.space, type_name, text);
}

}  // namespace jt_core
