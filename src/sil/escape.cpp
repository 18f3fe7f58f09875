#include "sil/escape.h"

#include <algorithm>

#include "sil/alphabet.h"

namespace jt_core {
namespace {

char letter_of(char c) {
  for (const Escape &escape : kEscapes) {
    if (escape.meaning == c) return escape.letter;
  }
  return c;
}

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
  return escape_into(out, text, quoting == Quoting::kQuotes ? kQuotedBytesToWrite : kWordBytes);
}

}  // namespace jt_core
