// Writing numbers; the digits come from <charconv>, which knows no locale.
#include "types/short_text.h"

#include <algorithm>
#include <charconv>

namespace jt_core {

void ShortText::add_number(std::int32_t number) { add_padded(number, 1); }

void ShortText::add_padded(std::int32_t number, std::size_t width) {
  constexpr std::string_view kZeros = "0000";
  std::array<char, 12> buffer;
  auto *const end = std::to_chars(buffer.begin(), buffer.end(), number).ptr;
  std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t missing = width - std::min(width, digits.size());
  if (number < 0) {
    add("-");
    digits.remove_prefix(1);
  }
  add(kZeros.substr(0, missing));
  add(digits);
}

std::string_view write_real(std::array<char, 64> &buffer, float number) {
  auto *const end =
      std::to_chars(buffer.begin(), buffer.end(), double{number}, std::chars_format::fixed, 6).ptr;
  return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

}  // namespace jt_core
