#include "sil/escape.h"

#include <algorithm>
#include <array>

#include "sil/byte_set.h"

namespace jt_core {
namespace {

struct Escape {
  char character;
  char letter;
};

constexpr std::array<Escape, 6> kControls = {
    {{'\b', 'b'}, {'\t', 't'}, {'\n', 'n'}, {'\v', 'v'}, {'\f', 'f'}, {'\r', 'r'}}};

char letter_of(char c) {
  for (const Escape &control : kControls) {
    if (control.character == c) return control.letter;
  }
  return c;
}

constexpr ByteSet kPlainInQuotes = all_but("\b\t\n\v\f\r\"\\");
constexpr ByteSet kPlain = all_but("\b\t\n\v\f\r !\"#$%&()*,;<=>?[\\]^{|}");

char *escape_into(char *out, std::string_view text, const ByteSet &plain) {
  const char *const end = text.data() + text.size();
  for (const char *at = text.data();; ++at) {
    const char *const special = end_of_run(at, end, plain);
    out = std::copy(at, special, out);
    if (special == end) return out;
    *out++ = '\\';
    *out++ = letter_of(*special);
    at = special;
  }
}

}  // namespace

char *write_escaped(char *out, std::string_view text, Quoting quoting) {
  return escape_into(out, text, quoting == Quoting::kQuotes ? kPlainInQuotes : kPlain);
}

}  // namespace jt_core
