#include "sil/escape.h"

#include <array>

namespace jt {
namespace {

struct Escape {
  char character;
  char letter;
};

constexpr std::array<Escape, 6> kControls = {
    {{'\b', 'b'}, {'\t', 't'}, {'\n', 'n'}, {'\v', 'v'}, {'\f', 'f'}, {'\r', 'r'}}};

// What stands behind the backslash of each byte; 0 where none is needed.
using EscapeTable = std::array<char, 256>;

constexpr EscapeTable escapes_of(std::string_view plain) {
  EscapeTable table{};
  for (const char c : plain) table[static_cast<unsigned char>(c)] = c;
  for (const Escape &control : kControls)
    table[static_cast<unsigned char>(control.character)] = control.letter;
  return table;
}

constexpr EscapeTable kInQuotes = escapes_of("\"\\");
constexpr EscapeTable kBare = escapes_of(" !\"#$%&()*,;<=>?[\\]^{|}");

char *escape_into(char *out, std::string_view text, const EscapeTable &table) {
  for (const char c : text) {
    const char letter = table[static_cast<unsigned char>(c)];
    if (letter != '\0') *out++ = '\\';
    *out++ = letter != '\0' ? letter : c;
  }
  return out;
}

}  // namespace

char *write_escaped(char *out, std::string_view text, Quoting quoting) {
  if (quoting == Quoting::kNone) return escape_into(out, text, kBare);
  *out++ = '"';
  out = escape_into(out, text, kInQuotes);
  *out++ = '"';
  return out;
}

}  // namespace jt
