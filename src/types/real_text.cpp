#include "types/real_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <version>

namespace jt_core {
namespace {

// The conversion alone is undefined beyond the range of a single; there the nearest single is infinity.
float to_single(double number) {
  constexpr double kFirstBeyond = 0x1.ffffffp127;
  return number < kFirstBeyond ? static_cast<float>(number) : std::numeric_limits<float>::infinity();
}

// ---- By integers ----

// A number in words of 32 bits, the highest first, with the point behind the units. What rounds to another
// single than 0 begins at 2^-150 or above, and 64 bits from there on are all that a double is rounded by; what
// comes behind only counts as something or nothing.
constexpr std::size_t kWordsBefore = 5;
constexpr std::size_t kWordsBehind = 7;
constexpr std::size_t kUnits = kWordsBefore - 1;
constexpr std::size_t kLastFirstWord = kWordsBefore + kWordsBehind - 3;

struct Binary {
  std::array<std::uint64_t, kWordsBefore + kWordsBehind> words{};
  bool has_more = false;
};

// The highest single has as many digits before its point; what has more of them is beyond.
constexpr std::size_t kMostDigitsBefore = 39;

void read_before_point(std::string_view digits, Binary &number) {
  for (const char digit : digits) {
    auto carry = static_cast<std::uint64_t>(digit - '0');
    for (std::size_t i = kWordsBefore; i > 0; --i) {
      carry += number.words[i - 1] * 10;
      number.words[i - 1] = carry & 0xFFFFFFFF;
      carry >>= 32U;
    }
  }
}

// The digits behind the point, nine to a group. A number halfway between two doubles has no digit but 0 behind
// the 204th if it is not below all singles.
constexpr std::uint32_t kGroupEnd = 1'000'000'000;
constexpr std::size_t kGroupDigits = 9;
constexpr std::size_t kGroups = 23;
using Groups = std::array<std::uint64_t, kGroups>;

std::size_t group_digits(std::string_view digits, Groups &groups) {
  const std::size_t count = std::min((digits.size() + kGroupDigits - 1) / kGroupDigits, kGroups);
  for (std::size_t i = 0; i < count * kGroupDigits; ++i) {
    const char digit = i < digits.size() ? digits[i] : '0';
    groups[i / kGroupDigits] = groups[i / kGroupDigits] * 10 + static_cast<std::uint64_t>(digit - '0');
  }
  return count;
}

// 2^32 times the groups; what passes the point is the next word.
std::uint64_t next_word(Groups &groups, std::size_t count) {
  std::uint64_t carry = 0;
  for (std::size_t i = count; i > 0; --i) {
    carry += groups[i - 1] << 32U;
    groups[i - 1] = carry % kGroupEnd;
    carry /= kGroupEnd;
  }
  return carry;
}

void read_behind_point(std::string_view digits, Binary &number) {
  Groups groups{};
  const std::size_t count = group_digits(digits, groups);
  for (std::size_t i = 0; i < kWordsBehind; ++i) number.words[kWordsBefore + i] = next_word(groups, count);
  const std::string_view left = digits.substr(std::min(digits.size(), kGroups * kGroupDigits));
  number.has_more = left.find_first_not_of('0') != std::string_view::npos ||
                    std::any_of(groups.begin(), groups.end(), [](std::uint64_t group) { return group != 0; });
}

bool has_more_behind(const Binary &number, std::size_t word) {
  return number.has_more || std::any_of(number.words.begin() + static_cast<std::ptrdiff_t>(word) + 1,
                                        number.words.end(), [](std::uint64_t bits) { return bits != 0; });
}

// The highest 64 bits, of which the conversion rounds away more than the lowest: that one says whether there is
// more behind.
double to_double(const Binary &number) {
  const auto *const first =
      std::find_if(number.words.begin(), number.words.end(), [](std::uint64_t word) { return word != 0; });
  const auto at = static_cast<std::size_t>(first - number.words.begin());
  if (at > kLastFirstWord) return 0;
  const int empty = std::countl_zero(static_cast<std::uint32_t>(first[0]));
  const std::uint64_t next = first[2] << static_cast<unsigned>(empty);
  const std::uint64_t bits = (first[0] << 32U | first[1]) << static_cast<unsigned>(empty) | next >> 32U;
  const bool has_more = (next & 0xFFFFFFFF) != 0 || has_more_behind(number, at + 2);
  return std::ldexp(static_cast<double>(bits | (has_more ? 1U : 0U)),
                    32 * (static_cast<int>(kUnits) - 1 - static_cast<int>(at)) - empty);
}

// ---- By the standard library ----

#ifdef __cpp_lib_to_chars

// A number beyond the range of a double is too large when a digit other than 0 comes before its point, else too
// small.
float beyond_doubles(std::string_view text) {
  const std::size_t first = text.find_first_not_of('0');
  const bool too_large = first != std::string_view::npos && text[first] != '.';
  return too_large ? std::numeric_limits<float>::infinity() : 0.0F;
}

#endif

}  // namespace

float read_real_by_integers(std::string_view text) {
  const std::size_t point = std::min(text.find('.'), text.size());
  std::string_view before = text.substr(0, point);
  before.remove_prefix(std::min(before.find_first_not_of('0'), before.size()));
  if (before.size() > kMostDigitsBefore) return std::numeric_limits<float>::infinity();
  Binary number;
  read_before_point(before, number);
  if (point < text.size()) read_behind_point(text.substr(point + 1), number);
  return to_single(to_double(number));
}

#ifdef __cpp_lib_to_chars

float read_real(std::string_view text) {
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc::result_out_of_range ? beyond_doubles(text) : to_single(number);
}

#else

float read_real(std::string_view text) { return read_real_by_integers(text); }

#endif

}  // namespace jt_core
