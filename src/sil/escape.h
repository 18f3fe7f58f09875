// The text of a value as it stands in SIL: strings in quotes, everything else with a backslash before each
// character that would mean something to the lexer. tests/sil/encoded_value_test.cpp writes every byte.
#ifndef JT_SIL_ESCAPE_H
#define JT_SIL_ESCAPE_H

#include <cstddef>
#include <string_view>

namespace jt_core {

enum class Quoting { kNone, kQuotes };

// What any text of that length takes at most, escaped and in quotes.
constexpr std::size_t max_escaped(std::size_t length) { return length * 2 + 2; }

// Writes a text, escaped as it is wanted in quotes or without them; where it ends. It holds no line feed.
char *write_escaped(char *out, std::string_view text, Quoting quoting);

}  // namespace jt_core

#endif
