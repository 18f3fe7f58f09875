// How the built-in types of one or few numbers read, write and compare; and the string.
#include "types/scalar_types.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>

#include "base/text.h"
#include "types/limits.h"
#include "types/number_text.h"

namespace jt_core {
namespace {

// ---- integer ----

std::int32_t with_sign(std::int64_t magnitude, bool negative) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(negative ? -magnitude : std::min(magnitude, kMax));
}

// ---- real ----

std::size_t count_digits(std::string_view text) {
  const auto *const end = std::find_if_not(text.begin(), text.end(), [](char c) { return is_digit(c); });
  return static_cast<std::size_t>(end - text.begin());
}

// The conversion alone is undefined beyond the range of a single; there the nearest single is infinity.
float to_single(double number) {
  constexpr double kFirstBeyond = 0x1.ffffffp127;
  return number < kFirstBeyond ? static_cast<float>(number) : std::numeric_limits<float>::infinity();
}

// A number beyond the range of a double is too large when it has a digit other than 0 before its point, else
// too small.
float read_real(std::string_view text, std::string_view before_point) {
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc::result_out_of_range) return to_single(number);
  const bool too_large = before_point.find_first_not_of('0') != std::string_view::npos;
  return too_large ? std::numeric_limits<float>::infinity() : 0.0F;
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

bool has_timestamp_shape(std::string_view text) {
  return std::all_of(kTimestampFields.begin(), kTimestampFields.end(), [&](Field field) {
    const std::size_t end = field.begin + field.width;
    return count_digits(text.substr(field.begin, field.width)) == field.width &&
           (end == kTimestampLength || text[end] == kTimestampSeparator);
  });
}

}  // namespace

bool Integer::parse(jt_parser_space *space, std::string_view text, Value &value) {
  std::string_view rest = text;
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) rest.remove_prefix(1);
  value = with_sign(read_magnitude(rest), negative);
  return rest.empty() || refuse_value(space, "integer", text);
}

bool Integer::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add_number(value);
  return true;
}

bool Real::parse(jt_parser_space *space, std::string_view text, Value &value) {
  const std::string_view before_point = text.substr(0, count_digits(text));
  const std::string_view rest = text.substr(before_point.size());
  const bool is_real =
      rest.empty() || (rest.front() == '.' && count_digits(rest.substr(1)) == rest.size() - 1);
  if (!is_real) return refuse_value(space, "real", text);
  value = read_real(text, before_point);
  return true;
}

// Minus zero equals zero.
std::array<std::int32_t, 1> Real::compared(Value value) {
  return {value == 0 ? 0 : std::bit_cast<std::int32_t>(value)};
}

bool Real::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add_real(value);
  return true;
}

bool Boolean::parse(jt_parser_space *space, std::string_view text, Value &value) {
  value = same_name(text, "true") ? 1 : 0;
  return value != 0 || same_name(text, "false") || refuse_value(space, "boolean", text);
}

bool Boolean::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add(value != 0 ? "TRUE" : "FALSE");
  return true;
}

// A text of the right length but another shape is refused without a report.
bool Timestamp::parse(jt_parser_space *space, std::string_view text, Value &value) {
  if (text.size() != kTimestampLength) return refuse_value(space, "timestamp", text);
  if (!has_timestamp_shape(text)) return false;
  for (std::size_t i = 0; i < value.size(); ++i) {
    std::string_view field = text.substr(kTimestampFields[i].begin, kTimestampFields[i].width);
    value[value.size() - 1 - i] = read_number(field);
  }
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

bool TimeOfDay::parse(jt_parser_space *space, std::string_view text, Value &value) {
  std::string_view rest = text;
  if (!read_field(rest, ':', value.hour)) return refuse_value(space, "struct_timeofday", text);
  value.minute = read_number(rest);
  return (value.hour <= kLastHour && value.minute <= kLastMinute) ||
         refuse_value(space, "struct_timeofday", text);
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
