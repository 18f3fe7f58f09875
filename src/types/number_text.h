// Numbers in the texts of values: decimal digits, saturating where 32 bits end, and never dependent on a
// locale. Each call takes what it has read off the front of the text. tests/types/integer_test.cpp goes to
// the ends of 32 bits.
#ifndef JT_TYPES_NUMBER_TEXT_H
#define JT_TYPES_NUMBER_TEXT_H

#include <cstdint>
#include <string_view>

namespace jt_core {

// What the digits at the front mean, at most 2147483649, which is one more than any number of 32 bits has
// before its sign is seen; no digit means 0.
std::int64_t read_magnitude(std::string_view &text);

// The same within a signed number of 32 bits.
std::int32_t read_number(std::string_view &text);

// A number and the separator behind it; false when something else stands there.
bool read_field(std::string_view &text, char separator, std::int32_t &number);

// Between the numbers and names of one text.
constexpr char kFieldSeparator = '/';

}  // namespace jt_core

#endif
