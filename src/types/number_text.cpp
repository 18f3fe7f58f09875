// Reading digits.
#include "types/number_text.h"

#include <algorithm>
#include <limits>

#include "foundation/text.h"

namespace jt {

std::int64_t read_magnitude(const char *&at) {
  constexpr std::int64_t kMost = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  std::int64_t number = 0;
  for (; is_digit(*at); ++at) number = std::min(number * 10 + (*at - '0'), kMost);
  return number;
}

std::int32_t read_number(const char *&at) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::min(read_magnitude(at), kMost));
}

bool read_field(const char *&at, char separator, std::int32_t &number) {
  number = read_number(at);
  if (*at != separator) return false;
  ++at;
  return true;
}

}  // namespace jt
