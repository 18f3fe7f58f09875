// Numbers in the texts of values: decimal digits, saturating where 32 bits end, and never dependent on a
// locale.
#ifndef JT_TYPES_NUMBER_TEXT_H
#define JT_TYPES_NUMBER_TEXT_H

#include <cstdint>

namespace jt {

// Passes over the digits that stand at `at`. What they mean, at most 2147483648; no digit means 0.
std::int64_t read_magnitude(const char *&at);

// The same within a signed number of 32 bits.
std::int32_t read_number(const char *&at);

// Reads a number and passes over the separator behind it; false when something else stands there.
bool read_field(const char *&at, char separator, std::int32_t &number);

}  // namespace jt

#endif
