// Reading digits.
#include "types/number_text.h"

#include <algorithm>
#include <limits>

#include "base/text.h"

namespace jt_core {

std::int64_t read_magnitude(std::string_view &text) {
  constexpr std::int64_t kMax = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 2;
  std::int64_t number = 0;
  std::size_t digits = 0;
  for (; digits < text.size() && is_digit(text[digits]); ++digits) {
    number = std::min(number * 10 + (text[digits] - '0'), kMax);
  }
  text.remove_prefix(digits);
  return number;
}

std::int32_t read_number(std::string_view &text) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::min(read_magnitude(text), kMax));
}

bool read_field(std::string_view &text, char separator, std::int32_t &number) {
  number = read_number(text);
  if (text.empty() || text.front() != separator) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace jt_core
