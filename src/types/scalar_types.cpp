// How the built-in types of one or few numbers read, write and compare; and the string.
#include "types/scalar_types.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "foundation/text.h"
#include "types/number_text.h"

namespace jt {
namespace {

bool refuse(jt_parser_space *space, std::string_view type_name, const char *text) {
  report_bad_value(space, type_name, text);
  return false;
}

// ---- integer ----

std::int32_t with_sign(std::int64_t magnitude, bool negative) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(negative ? -magnitude : std::min(magnitude, kMost));
}

// ---- real ----

const char *skip_digits(const char *at) {
  while (is_digit(*at)) ++at;
  return at;
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
    const std::string_view digits(text.data() + field.begin, field.width);
    return std::all_of(digits.begin(), digits.end(), is_digit) &&
           (end == kTimestampLength || text[end] == kTimestampSeparator);
  });
}

}  // namespace

bool Integer::parse(jt_parser_space *space, const char *text, Value &value) {
  const char *at = text;
  const bool negative = *at == '-';
  if (negative || *at == '+') ++at;
  value = with_sign(read_magnitude(at), negative);
  return *at == '\0' || refuse(space, "integer", text);
}

bool Integer::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add_number(value);
  return true;
}

bool Real::parse(jt_parser_space *space, const char *text, Value &value) {
  const char *const point = skip_digits(text);
  const char *const end = *point == '.' ? skip_digits(point + 1) : point;
  if (*end != '\0') return refuse(space, "real", text);
  value =
      read_real({text, static_cast<std::size_t>(end - text)}, {text, static_cast<std::size_t>(point - text)});
  return true;
}

bool Real::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add_real(value);
  return true;
}

bool Boolean::parse(jt_parser_space *space, const char *text, Value &value) {
  value = same_name(text, "true") ? 1 : 0;
  return value != 0 || same_name(text, "false") || refuse(space, "boolean", text);
}

bool Boolean::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add(value != 0 ? "TRUE" : "FALSE");
  return true;
}

// A text of the right length but another shape is refused without a report.
bool Timestamp::parse(jt_parser_space *space, char *text, Value &value) {
  if (measured(space, text).size() != kTimestampLength) return refuse(space, "timestamp", text);
  if (!has_timestamp_shape(text)) return false;
  std::replace(text, text + kTimestampLength, kTimestampSeparator, '\0');
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char *at = text + kTimestampFields[i].begin;
    value[value.size() - 1 - i] = read_number(at);
  }
  return true;
}

bool Timestamp::format(jt_parser_space * /*space*/, const Value &value, ShortText &text) {
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (i != 0) text.add("/");
    text.add_padded(value[value.size() - 1 - i], kTimestampFields[i].width);
  }
  return true;
}

std::int32_t Timestamp::compare(const Value &a, const Value &b) {
  const auto different = std::mismatch(a.rbegin(), a.rend(), b.rbegin());
  return different.first != a.rend() ? order(*different.first, *different.second) : 0;
}

bool TimeOfDay::parse(jt_parser_space *space, const char *text, Value &value) {
  constexpr std::int32_t kLastHour = 23;
  constexpr std::int32_t kLastMinute = 59;
  const char *at = text;
  if (!read_field(at, ':', value.hour)) return refuse(space, "struct_timeofday", text);
  value.minute = read_number(at);
  return (value.hour <= kLastHour && value.minute <= kLastMinute) || refuse(space, "struct_timeofday", text);
}

bool TimeOfDay::format(jt_parser_space * /*space*/, Value value, ShortText &text) {
  text.add_number(value.hour);
  text.add(":");
  text.add_number(value.minute);
  return true;
}

std::int32_t TimeOfDay::compare(Value a, Value b) {
  return a.hour != b.hour ? order(a.hour, b.hour) : order(a.minute, b.minute);
}

namespace {

const char *string_in(const jt_value *value) { return reinterpret_cast<const char *>(value); }

}  // namespace

jt_value *StringType::eval(jt_parser_space *space, char *text) {
  return text != nullptr ? store_text(space, measured(space, text)) : nullptr;
}

jt_value *StringType::copy(jt_parser_space *space, const jt_value *value) {
  return value != nullptr ? store_text(space, string_in(value)) : nullptr;
}

char *StringType::deval(jt_parser_space *space, const jt_value *value) {
  return value != nullptr ? copy_value_text(space, string_in(value)) : nullptr;
}

std::int32_t StringType::cmp(jt_parser_space * /*space*/, const jt_value *a, const jt_value *b) {
  return lowercasecmp(string_in(a), string_in(b));
}

}  // namespace jt
