// How the built-in types of one or few numbers read, write and compare; and the string.
#include "types/scalar_types.h"

#include <algorithm>
#include <bit>
#include <limits>

#include "base/text.h"
#include "types/number_text.h"
#include "types/real_text.h"
#include "types/value_remarks.h"

namespace jt_core {
namespace {

// ---- integer ----

std::int32_t saturated(std::int64_t number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

// ---- real ----

std::size_t count_digits(std::string_view text) {
  const auto *const end = std::find_if_not(text.begin(), text.end(), [](char c) { return is_digit(c); });
  return static_cast<std::size_t>(end - text.begin());
}

// ---- timestamp ----

struct Field {
  std::size_t begin;
  std::size_t width;
};

// In the order of the text; the value holds them backwards.
constexpr std::array<Field, 6> kTimestampFields = {{{0, 4}, {5, 2}, {8, 2}, {11, 2}, {14, 2}, {17, 2}}};
constexpr std::size_t kTimestampLength = 19;
constexpr char kTimestampSeparator = '/';

// From the first character that has no place in a timestamp to the end.
std::string_view misfit_in_timestamp(std::string_view text) {
  constexpr std::string_view kForm = "0000/00/00/00/00/00";
  const auto *const misfit =
      std::mismatch(text.begin(), text.end(), kForm.begin(), kForm.end(), [](char c, char form) {
        return is_digit(form) ? is_digit(c) : c == form;
      }).first;
  return text.substr(static_cast<std::size_t>(misfit - text.begin()));
}

}  // namespace

bool Integer::parse(Reading reading, std::string_view text, Value &value) {
  std::string_view rest = text;
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) rest.remove_prefix(1);
  const std::int64_t magnitude = read_magnitude(rest);
  const std::int64_t number = negative ? -magnitude : magnitude;
  value = saturated(number);
  if (!rest.empty()) return refuse_misfit(reading, "integer", text, rest);
  if (reading.is_heard()) remark_integer(reading, text, value != number);
  return true;
}

bool Integer::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add_number(value);
  return true;
}

bool Real::parse(Reading reading, std::string_view text, Value &value) {
  const std::string_view before_point = text.substr(0, count_digits(text));
  std::string_view rest = text.substr(before_point.size());
  if (rest.starts_with('.')) rest.remove_prefix(1 + count_digits(rest.substr(1)));
  if (!rest.empty()) return refuse_misfit(reading, "real", text, rest);
  value = read_real(text);
  if (reading.is_heard()) remark_real(reading, text, value);
  return true;
}

// Minus zero equals zero.
std::array<std::int32_t, 1> Real::compared(Value value) {
  return {value == 0 ? 0 : std::bit_cast<std::int32_t>(value)};
}

bool Real::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  std::array<char, 64> buffer;
  text.add(write_real(buffer, value));
  return true;
}

bool Boolean::parse(Reading reading, std::string_view text, Value &value) {
  value = same_name(text, "true") ? 1 : 0;
  return value != 0 || same_name(text, "false") || refuse_misfit(reading, "boolean", text, text);
}

bool Boolean::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add(value != 0 ? "TRUE" : "FALSE");
  return true;
}

// A text of the right length but another shape is refused without a report.
bool Timestamp::parse(Reading reading, std::string_view text, Value &value) {
  const std::string_view misfit = misfit_in_timestamp(text);
  if (text.size() != kTimestampLength) return refuse_misfit(reading, "timestamp", text, misfit);
  if (!misfit.empty()) {
    remark_misfit(reading, misfit, misfit);
    return false;
  }
  for (std::size_t i = 0; i < value.size(); ++i) {
    std::string_view field = text.substr(kTimestampFields[i].begin, kTimestampFields[i].width);
    value[value.size() - 1 - i] = read_number(field);
  }
  if (reading.is_heard()) remark_calendar(reading, text, value[5], value[4]);
  return true;
}

void Timestamp::cut(char *text, ReadStatus status) {
  if (status != ReadStatus::kRefused) std::replace(text, text + kTimestampLength, kTimestampSeparator, '\0');
}

bool Timestamp::format(jt_parser_space * /*space*/, const Value &value, ShortText &text) {
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (i != 0) text.add("/");
    text.add_padded(value[value.size() - 1 - i], kTimestampFields[i].width);
  }
  return true;
}

std::int32_t Timestamp::order(const Value &a, const Value &b) {
  const auto different = std::mismatch(a.rbegin(), a.rend(), b.rbegin());
  return different.first != a.rend() ? order_of(*different.first, *different.second) : 0;
}

bool TimeOfDay::parse(Reading reading, std::string_view text, Value &value) {
  constexpr const char *kTypeName = "struct_timeofday";
  std::string_view rest = text;
  if (!read_field(rest, ':', value.hour)) return refuse_misfit(reading, kTypeName, text, rest);
  value.minute = read_number(rest);
  if (reading.is_heard()) remark_time(reading, text);
  return (kTimeRanges[0].has(value.hour) && kTimeRanges[1].has(value.minute)) ||
         refuse_value(reading.space, kTypeName, text);
}

bool TimeOfDay::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add_number(value.hour);
  text.add(":");
  text.add_number(value.minute);
  return true;
}

std::int32_t TimeOfDay::order(Value a, Value b) {
  return a.hour != b.hour ? order_of(a.hour, b.hour) : order_of(a.minute, b.minute);
}

namespace {

const char *string_in(const jt_value *value) { return reinterpret_cast<const char *>(value); }

}  // namespace

ReadResult StringType::read(jt_parser_space *space, const ValueList * /*names*/, std::string_view text,
                            ValueSink &sink) {
  return made_if_there(store_text(space, sink, text));
}

jt_value *StringType::copy(jt_parser_space *space, const jt_value *value, ValueSink &sink) {
  return store_text(space, sink, string_in(value));
}

bool StringType::write(jt_parser_space * /*space*/, const ValueList * /*names*/, const jt_value *value,
                       ValueText &text) {
  text.pieces[0] = string_in(value);
  return true;
}

bool StringType::hash(const HashKey *secret, const jt_value *value, std::uint32_t &hash) {
  hash = hash_name(secret, string_in(value));
  return true;
}

std::int32_t StringType::compare(const jt_value *a, const jt_value *b) {
  return lowercasecmp(string_in(a), string_in(b));
}

}  // namespace jt_core
