// Reading reals: digits with at most one point among them, to the nearest double and from there to the nearest
// single, which can differ from the single nearest to the digits. tests/types/real_text_test.cpp compares the
// two ways to do it on a million of them, tests/types/real_test.cpp has the ends of the range.
#ifndef JT_TYPES_REAL_TEXT_H
#define JT_TYPES_REAL_TEXT_H

#include <string_view>

namespace jt_core {

// Infinity beyond the range of singles. By the standard library where it reads decimals without a locale, which
// is five times as fast, else by integers.
float read_real(std::string_view text);

// The same by integers alone: exact however many digits there are, takes nothing from the heap and cannot fail.
float read_real_by_integers(std::string_view text);

}  // namespace jt_core

#endif
